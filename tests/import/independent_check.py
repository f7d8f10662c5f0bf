"""Compares the cell texts that the reader gives with those of openpyxl, and of LibreOffice where it
is installed.  usage: independent_check.py DUMP_PROGRAM FOLDER

Empty rows and trailing empty cells are left out on both sides. A value of openpyxl stands for the
raw text as follows: None is empty, a boolean 1 or 0, a date its serial number; numbers are compared
by value. LibreOffice writes booleans and dates its own way: those cells are not compared with it.
"""
import csv
import datetime
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile

import openpyxl
from openpyxl.utils.datetime import to_excel


def raw(value):
    if isinstance(value, datetime.datetime):
        value = to_excel(value)
    return "" if value is None else str(int(value)) if isinstance(value, bool) else str(value)


def dense(rows):
    for row in rows:
        row = list(row)
        while row and row[-1] == "":
            row.pop()
        if row:
            yield row


def number(text):
    try:
        return float(text)
    except ValueError:
        return text


def same(ours, theirs):
    ours, theirs = list(dense(ours)), list(dense(theirs))
    assert [len(row) for row in ours] == [len(row) for row in theirs], (ours, theirs)
    for our, their in ((o, t) for row in zip(ours, theirs) for o, t in zip(*row)):
        foreign = their in ("TRUE", "FALSE") or their.count("/") == 2
        assert foreign or number(our) == number(their), (our, their)


def libreoffice(workbook, folder):
    export = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,false,false,false,-1"
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless",
                    "--convert-to", export, "--outdir", folder, workbook],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    for name in openpyxl.load_workbook(workbook).sheetnames:
        path = pathlib.Path(folder, f"{workbook.stem}-{name}.csv")
        yield list(csv.reader(path.open(encoding="utf-8", newline="")))


workbooks = sorted(pathlib.Path(sys.argv[2]).glob("*.xlsx"))
assert workbooks
for workbook in workbooks:
    sheets = json.loads(subprocess.run([sys.argv[1], workbook], check=True, capture_output=True).stdout)
    book = openpyxl.load_workbook(workbook, data_only=True)
    assert len(sheets) == len(book.worksheets)
    for ours, theirs in zip(sheets, book.worksheets):
        same(ours, [[raw(value) for value in row] for row in theirs.values])
    if shutil.which("soffice"):
        with tempfile.TemporaryDirectory() as folder:
            for ours, theirs in zip(sheets, libreoffice(workbook, folder), strict=True):
                same(ours, theirs)
