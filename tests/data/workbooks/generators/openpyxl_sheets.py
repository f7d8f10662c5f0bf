"""Twelve sheets, so that the tenth comes after the ninth; the header is repeated in the first."""
import sys
from openpyxl import Workbook

HEADER = ["Code postal", "Entreprise", "Mobile", "Ville"]
book = Workbook()
book.remove(book.active)
for number in range(1, 13):
    sheet = book.create_sheet(f"Tournée {number}")
    sheet.append(HEADER)
    sheet.append([56000 + number, f"Crêperie n° {number}", 639980100 + number, "Vannes"])
book.worksheets[0].append(HEADER)
book.worksheets[0].append([1000, "Fromagerie", "06.39.98.01.20", "Bourg-en-Bresse"])
book.worksheets[11].sheet_state = "veryHidden"
book.save(sys.argv[1])
