"""Prints what a worksheet shows, one fact to a line, for worksheet_test.cpp."""
import sys

import xlrd

book = xlrd.open_workbook(sys.argv[1], formatting_info=True)
sheet = book.sheet_by_index(0)


def colour(index):
    rgb = book.colour_map.get(index)
    return "#%02X%02X%02X" % rgb if rgb else "none"


print("sheets", book.nsheets)
for r in range(sheet.nrows):
    print("height", r, sheet.rowinfo_map[r].height)
    for c in range(sheet.ncols):
        xf = book.xf_list[sheet.cell_xf_index(r, c)]
        font = book.font_list[xf.font_index]
        back = xf.background
        print("cell", r, c, colour(back.pattern_colour_index) if back.fill_pattern else "none",
              colour(font.colour_index), "bold" if font.bold else "plain", font.height // 20,
              font.name, ["general", "left", "centre"][xf.alignment.hor_align],
              xf.border.left_line_style, book.format_map[xf.format_key].format_str)
for c in range(sheet.ncols):
    print("width", c, sheet.colinfo_map[c].width, sheet.colinfo_map[c].hidden)
for first_row, end_row, first_col, end_col in sorted(sheet.merged_cells):
    print("merged", first_row, first_col, end_row - 1, end_col - 1)
print("frozen", sheet.panes_are_frozen, sheet.horz_split_pos, sheet.vert_split_pos)
