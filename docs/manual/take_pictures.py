"""Takes the manual's pictures from the running program, so that they stay true.

    python3 docs/manual/take_pictures.py build/release [PANEL...]

Drives build/release/bin/panel_driver on a copy of the delivered database and writes
docs/manual/pictures/PANEL.png, all of them or those named. Needs pngquant.
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

PICTURES = pathlib.Path(__file__).parent / "pictures"
LARGEST = 80_000  # bytes

PLAN = """# 下期方案
红球 01-20 22 25 28
胆码 05
蓝球 03,11
容错 2
03,07,12,15,20,31/0~1
!01-11/1~3
和值 80~120
奇数 2~4
AC值 >=6
三区比 2:2:2 3:2:1 1:3:2
"""


def menu(entry):
    return {"do": "menu", "entry": entry}


def click(control):
    return {"do": "click", "control": control}


def fill(control, value):
    return {"do": "set", "control": control, "value": value}


def range_panel(entry):
    return [menu(entry), click("Command1")]


# Opens the kill numbers and learns twelve of them on ten draws.
LEARN_KILLS = [menu("m_shamatujian"), click("Command2"), fill("cboSmGs", "杀12码"),
               fill("txtQS", "10"), click("Command1")]


# How each panel comes to the state that its page shows, each in a program of its own.
SCENES = {
    "frmMain": [menu("m_xuexi")],
    "frmXUEXI": [menu("m_rs")],
    "frmxxjl": [menu("m_xuexi"), menu("m_sr")],
    "frmMangCe": [menu("m_mangce"), click("Command1")],
    "frmHistory": range_panel("m_hostory"),
    "frmZST": range_panel("m_zst_cg"),
    "frmWeizhi1107568": range_panel("m_zst_hmd"),
    "frmQDDZ": [menu("m_zst_hmd"), click("Command2")],
    "frmWeiShu": range_panel("m_wszst"),
    "frmLHzst": range_panel("m_lhzst"),
    "frmWeiHangLie": range_panel("m_wshlt"),
    "frmLSBJ": [menu("m_lsbj"), fill("TxtHM", "03 08 14 20 26 32"), click("Command1")],
    "ZDY_XDM": [menu("m_zdtxd"), fill("Text1", "a1+a2"), click("Command1"),
                fill("Text1", "int((a3+a5)/2)"), click("Command1"), click("Command4")],
    "frmMtoN": range_panel("m_plzh"),
    "frmDFjishuan": [menu("m_danfujs"), fill("CBOdan", "2"), fill("CBOtuo", "8"),
                     click("Command1"), fill("cboHong", "9"), click("Command2")],
    "frmJianGe": range_panel("m_redJG"),
    "frmHeZhi": range_panel("m_redhezhi"),
    "frmLengRe": range_panel("m_redLengRe"),
    "frmLrHMfx": [menu("m_redLengRe"), click("Command1"),
                  {"do": "popup", "control": "vs1", "row": 10, "col": 2,
                   "entry": "m_frmlengre_hmpm"}],
    "frmBianMa": range_panel("m_redBm"),
    "frmHongHaomaGens": range_panel("hong_haomagenshui"),
    "frm18MaWeiHong": range_panel("m_danzhu"),
    "frmWeiLan": range_panel("m_znweilan"),
    "frmSHAMAxuexi": [menu("m_shamatujian"), click("Command2")],
    "frmSHAMA": LEARN_KILLS,
    "frmSHAMAxxjl": LEARN_KILLS + [click("Command3")],
    "frmShaHao": range_panel("m_sdsh"),
    "frmShaHaoYLSX": [menu("m_sdsh"), click("Command1"),
                      {"do": "choose", "control": "tab1", "index": 1}, click("Command5"),
                      fill("txtYLCS", "3"), click("Command3")],
    "frmXuanHao": [menu("m_xuanhao"), fill("txtFangAn", PLAN), click("Command1")],
}


class Program:
    def __init__(self, build):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="ssq-pictures-"))
        (self.folder / "data").mkdir()
        shutil.copy(build / "delivered" / "ssq.mdb", self.folder / "data")
        environment = dict(os.environ, TZ="Asia/Shanghai",
                           XDG_RUNTIME_DIR=str(self.folder))
        self.process = subprocess.Popen([build / "bin" / "panel_driver", self.folder],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        encoding="utf-8", env=environment)

    def send(self, command):
        self.process.stdin.write(json.dumps(command) + "\n")
        self.process.stdin.flush()
        reply = json.loads(self.process.stdout.readline())
        if not reply["ok"]:
            sys.exit(f"{command}: {reply['error']}")
        for message in reply["messages"]:
            print(f"{command}: {message['text']}", file=sys.stderr)
        return reply

    def end(self):
        self.send({"do": "quit"})
        self.process.wait()
        shutil.rmtree(self.folder)


def reduce(file):
    """Fewer colours until the file is small enough; a window has few anyway."""
    for colours in (128, 64, 32, 16):
        subprocess.run(["pngquant", "--force", "--strip", "--nofs", "--speed", "1",
                        "--output", file, str(colours), file], check=True)
        if file.stat().st_size <= LARGEST:
            return
    sys.exit(f"{file}: {file.stat().st_size} bytes")


def main(build, wanted):
    PICTURES.mkdir(exist_ok=True)
    for panel in wanted or SCENES:
        program = Program(build)
        for command in SCENES[panel]:
            program.send(command)
        file = PICTURES / f"{panel}.png"
        shown = program.send({"do": "screenshot", "file": str(file.resolve())})
        if panel not in (shown["panel"], shown["modal"]):
            sys.exit(f"{panel}: {shown['panel']} is shown")
        reduce(file)
        program.end()


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:])
