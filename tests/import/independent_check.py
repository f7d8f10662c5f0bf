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


def number(text):
    try:
        return float(text)
    except ValueError:
        return text


def dense(rows):
    texts = ["\t".join(row).rstrip("\t") for row in rows]
    return [[number(cell) for cell in text.split("\t")] for text in texts if text]


def same(ours, theirs):
    for our, their in zip(dense(ours), dense(theirs), strict=True):
        for a, b in zip(our, their, strict=True):
            assert a == b or b == "TRUE" or str(b).count("/") == 2, (a, b)


def libreoffice(workbook, names, folder):
    export = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,false,false,false,-1"
    profile = f"-env:UserInstallation=file://{folder}/profile"
    subprocess.run(["soffice", profile, "--headless", "--convert-to", export, "--outdir", folder,
                    workbook], check=True, capture_output=True)
    for name in names:
        path = pathlib.Path(folder, f"{workbook.stem}-{name}.csv")
        yield list(csv.reader(path.open(encoding="utf-8", newline="")))


for workbook in sorted(pathlib.Path(sys.argv[2]).glob("*.xlsx")):
    dump = subprocess.run([sys.argv[1], workbook], check=True, capture_output=True).stdout
    sheets = json.loads(dump)
    book = openpyxl.load_workbook(workbook, data_only=True)
    for ours, theirs in zip(sheets, book.worksheets, strict=True):
        same(ours, [map(raw, row) for row in theirs.values])
    if shutil.which("soffice"):
        with tempfile.TemporaryDirectory() as folder:
            for ours, theirs in zip(sheets, libreoffice(workbook, book.sheetnames, folder), strict=True):
                same(ours, theirs)
