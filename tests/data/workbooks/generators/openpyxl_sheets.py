"""Sheets of which the tenth comes after the ninth; one without a header, one with two that differ."""
import sys
from openpyxl import Workbook

book = Workbook()
book.remove(book.active)
for number in range(1, 13):
    sheet = book.create_sheet(f"Tournée {number}")
    sheet.append(["Code postal", "Entreprise", "Mobile", "Ville"])
    sheet.append([56000 + number, f"Crêperie n° {number}", 639980100 + number, "Vannes"])
book.worksheets[0].append(["Nom", "Portable", "CP", "Contact", "Mobile", "Commune"])
book.worksheets[0].append(["Fromagerie", "06.39.98.01.20", 1000, "non", 639980199, "Bourg-en-Bresse"])
book.worksheets[11].sheet_state = "veryHidden"
book.create_sheet("Sans en-tête").append([56000, "Personne", 639980198, "Vannes"])
book.save(sys.argv[1])
