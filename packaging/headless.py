"""Does the program's main job without a display.

    python3 headless.py FOLDER

FOLDER is the program's (with panel_driver and data/ssq.mdb). Learns, recommends, prints the
numbers for the next issue and saves a picture of the window in FOLDER.
"""

import json
import os
import subprocess
import sys


def main(folder):
    driver = subprocess.Popen([os.path.join(folder, "panel_driver"), folder],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                              encoding="utf-8")

    def send(**command):
        driver.stdin.write(json.dumps(command) + "\n")
        driver.stdin.flush()
        reply = json.loads(driver.stdout.readline())
        for message in reply["messages"]:
            print(message["text"], file=sys.stderr)
        if not reply["ok"]:
            sys.exit(reply["error"])
        return reply

    status = send(do="get", control="bar1")["panels"]
    print("; ".join(status))
    send(do="menu", entry="m_xuexi")
    grid = send(do="grid", control="vs1")
    picture = os.path.join(folder, "recommendation.png")
    send(do="screenshot", file=picture)
    send(do="quit")
    if grid["rows"] == 0:
        sys.exit("没有推荐结果")
    print_recommendation(grid)
    print("图片: " + picture)


def print_recommendation(grid):
    cells = grid["cells"]
    forecast, rates = grid["rows"] - 2, grid["rows"] - 1
    width = (grid["cols"] - 2) // 3
    print(cells[f"{forecast},1"])
    for group in range(3):
        first = 2 + group * width
        numbers = [cells.get(f"{forecast},{col}", "") for col in range(first, first + width - 1)]
        rate = cells.get(f"{rates},{first + width - 1}", "-")
        print(f"{cells[f'0,{first}']}: {' '.join(numbers)}  (命中概率 {rate}%)")


if __name__ == "__main__":
    main(sys.argv[1])
