#!/usr/bin/python3
"""Holds a workbook of the descriptions against the database that it was made from, cell by cell.

    check_workbook.py DATABASE WORKBOOK

Reads the workbook with readers that others wrote: xlrd and olefile for .xls, openpyxl for .xlsx. Prints every
difference, and at the end the number of cells that were compared; the exit status is 1 when there are differences.
"""
import datetime
import functools
import math
import re
import sqlite3
import sys

TABLES = [
    ("CO_COMPANY", "MERLU RIMA Company/Owner", None),
    ("PD_PLATFORM_DESC", "Platform/Structure Descriptions (static)",
     "This table is the master list of Platforms(structures). PD_ID_AK is the link to the Master Equipment List in "
     "PD_EQUIP_DESC."),
    ("ED_EQUIP_DESC", "Equipment Descriptions (static)",
     "This table is the master list of equipment. PD_ID_AK is the link to the Platform Description.  ED_ID_AK is the "
     "link to the equipment-specific table (ED_***)."),
] + [("ED_" + code, None, None) for code in "AMI BOI DIE DRI FLA FUG GLY LOA LOS NGE NGT MUD PNE PRE STO VEN".split()]

HEAD_ROWS = 6
ESCAPED = re.compile("_x([0-9A-Fa-f]{4})_")
FIRST_DATE = datetime.datetime(1900, 3, 1)  # programs disagree about those before


@functools.lru_cache(maxsize=None)
def as_date(text):
    for form in ("%Y-%m-%d %H:%M:%S", "%Y-%m-%d %H:%M", "%Y-%m-%d"):
        try:
            date = datetime.datetime.strptime(text, form)
            return date if date >= FIRST_DATE else text
        except ValueError:
            pass
    return text


def expected_value(value, kind):
    if value is None or value == "":
        return None
    if kind == "BOOLEAN" and isinstance(value, int):
        return bool(value)
    if kind == "DATETIME" and isinstance(value, str):
        return as_date(value)
    if isinstance(value, (int, float)):
        return float(value)
    return value


def expected_sheet(db, table, description, note):
    """The sheet's rows, with None for an empty cell, and the number of columns that the table has."""
    columns = db.execute("PRAGMA table_info([%s])" % table).fetchall()
    kinds = [column[2].upper() for column in columns]
    records = [[expected_value(value, kind) for value, kind in zip(record, kinds)]
               for record in db.execute("SELECT * FROM [%s] ORDER BY rowid" % table)]
    rows = [["MERLU Database Export"], ["Table Name =", table], ["Table Description =", description],
            ["No. Records =", float(len(records))], [], [column[1] for column in columns]] + records
    if note:
        rows += [[], [note]]
    return rows, len(columns)


def same(found, wanted, exact):
    if isinstance(wanted, float) and isinstance(found, float):
        return found == wanted or (not exact and math.isclose(found, wanted, rel_tol=1e-15))
    return type(found) is type(wanted) and found == wanted


class Xls:
    exact = True  # doubles are kept bit by bit

    def __init__(self, path):
        import olefile
        import xlrd
        self.xlrd = xlrd
        with open(path, "rb") as file:
            assert olefile.isOleFile(file.read())
        with olefile.OleFileIO(path, raise_defects=olefile.DEFECT_UNSURE) as container:
            assert container.listdir() == [["Workbook"]], container.listdir()
            assert not container.parsing_issues, container.parsing_issues
        log = Log()
        self.book = xlrd.open_workbook(path, formatting_info=True, logfile=log)
        assert not log.lines, log.lines
        self.names = self.book.sheet_names()

    def rows(self, name):
        sheet = self.book.sheet_by_name(name)
        return [list(map(self.value, sheet.row_types(row), sheet.row_values(row))) for row in range(sheet.nrows)]

    def value(self, kind, value):
        if kind in (self.xlrd.XL_CELL_EMPTY, self.xlrd.XL_CELL_BLANK):
            return None
        if kind == self.xlrd.XL_CELL_BOOLEAN:
            return bool(value)
        if kind == self.xlrd.XL_CELL_DATE:
            return self.xlrd.xldate.xldate_as_datetime(value, self.book.datemode)
        return value

    def look(self, name, row, column):
        """Font, bold, colour of the background."""
        sheet = self.book.sheet_by_name(name)
        if row >= sheet.nrows or column >= sheet.row_len(row):
            return ("", False, None)
        format = self.book.xf_list[sheet.cell_xf_index(row, column)]
        font = self.book.font_list[format.font_index]
        filled = format.background.fill_pattern == 1
        colour = self.book.colour_map[format.background.pattern_colour_index] if filled else None
        return (font.name, bool(font.bold), colour)

    def frozen_rows(self, name):
        sheet = self.book.sheet_by_name(name)
        assert sheet.vert_split_pos == 0 and sheet.horz_split_first_visible == sheet.horz_split_pos
        return sheet.horz_split_pos if sheet.panes_are_frozen else 0

    def width(self, name, column):
        return self.book.sheet_by_name(name).colinfo_map[column].width / 256


class Xlsx:
    exact = False  # 16 digits

    def __init__(self, path):
        import openpyxl
        self.book = openpyxl.load_workbook(path)
        self.names = self.book.sheetnames

    def rows(self, name):
        return [[self.value(value) for value in row] for row in self.book[name].iter_rows(values_only=True)]

    def value(self, value):
        if isinstance(value, str):
            return ESCAPED.sub(lambda match: chr(int(match[1], 16)), value) if "_x" in value else value
        return float(value) if type(value) is int else value

    def look(self, name, row, column):
        cell = self.book[name].cell(row + 1, column + 1)
        if cell.fill.fill_type != "solid":
            return (cell.font.name, bool(cell.font.bold), None)
        colour = cell.fill.fgColor.rgb
        return (cell.font.name, bool(cell.font.bold), tuple(int(colour[at:at + 2], 16) for at in (2, 4, 6)))

    def frozen_rows(self, name):
        pane = self.book[name].freeze_panes
        return 0 if pane is None else int(pane[1:]) - 1 if pane.startswith("A") else -1

    def width(self, name, column):
        from openpyxl.utils import get_column_letter
        dimensions = self.book[name].column_dimensions
        letter = get_column_letter(column + 1)
        for other, dimension in dimensions.items():  # neighbours of one width stand together
            if dimension.min is not None and dimension.min <= column + 1 <= dimension.max:
                return dimension.width
        return dimensions[letter].width


class Log:
    def __init__(self):
        self.lines = []

    def write(self, text):
        if text.strip():
            self.lines.append(text)


class Check:
    def __init__(self):
        self.cells = 0
        self.differences = 0

    def tell(self, *words):
        self.differences += 1
        if self.differences <= 20:
            print(*words)

    def values(self, book, name, wanted):
        found = book.rows(name)
        for row in range(max(len(found), len(wanted))):
            left = found[row] if row < len(found) else []
            right = wanted[row] if row < len(wanted) else []
            if left == right and list(map(type, left)) == list(map(type, right)):
                self.cells += len(left)
                continue
            for column in range(max(len(left), len(right))):
                self.cells += 1
                a = left[column] if column < len(left) else None
                b = right[column] if column < len(right) else None
                if not same(a, b, book.exact):
                    self.tell(name, "row", row + 1, "column", column + 1, "holds", ascii(a)[:200], "not", ascii(b)[:200])

    def looks(self, book, name, wanted, columns):
        heading = ("Tahoma", True, (191, 191, 191))
        headings = {(row, 0) for row in (1, 2, 3)}
        for row in (0, HEAD_ROWS - 1):
            headings |= {(row, column) for column in range(columns)}
        for row in range(min(len(wanted), HEAD_ROWS + 5)):
            for column in range(columns):
                look = book.look(name, row, column)
                if (row, column) in headings and look != heading:
                    self.tell(name, "row", row + 1, "column", column + 1, "looks", look)
                if (row, column) not in headings and (look[1] or look[2] is not None):
                    self.tell(name, "row", row + 1, "column", column + 1, "looks like a heading")
        if book.frozen_rows(name) != HEAD_ROWS:
            self.tell(name, "has", book.frozen_rows(name), "frozen rows")

    def widths(self, book, name, fitted, columns):
        for column in range(columns):
            longest = max(len(row[column]) for row in fitted if column < len(row) and isinstance(row[column], str))
            width = book.width(name, column)
            if not min(longest, 55) <= width <= 62:
                self.tell(name, "column", column + 1, "has the width", width, "for", longest, "characters")


def main():
    database, workbook = sys.argv[1:]
    db = sqlite3.connect("file:%s?mode=ro" % database, uri=True)
    book = Xlsx(workbook) if workbook.lower().endswith("x") else Xls(workbook)
    check = Check()
    if book.names != [table[0] for table in TABLES]:
        check.tell("the sheets are", book.names)
    for table, description, note in TABLES:
        rows, columns = expected_sheet(db, table, description, note)
        check.values(book, table, rows)
        check.looks(book, table, rows, columns)
        check.widths(book, table, rows[1:-1] if note else rows[1:], columns)
    print(check.cells, "cells compared,", check.differences, "differences")
    sys.exit(1 if check.differences else 0)


if __name__ == "__main__":
    main()
