# SPDX-License-Identifier: MIT
"""Writes a spreadsheet with a library of somebody else (Debian: python3-openpyxl).

usage: write_sheets.py FILE.xlsx"""
import datetime
import sys

try:
    import openpyxl
except ImportError:
    sys.exit(77)

book = openpyxl.Workbook()
sheet = book.active
sheet.title = "Holes"
for row in (["hole", "Easting", "Northing", "Elev", "Au", "when"],
            ["007", 500000.25, 7500000.5, 12.5, 0.1, datetime.date(2024, 2, 29)],
            ["Ж", 500010.25, 7500010.5, None, None, None],
            ["C", None, 7500010.5, 3, 2.5, None]):
    sheet.append(row)
towns = book.create_sheet("Towns")
for row in (["name", "longitude", "latitude"], ["A", 117.25, -22.5], ["B", 118.5, -23]):
    towns.append(row)
book.create_sheet("Empty")
book.save(sys.argv[1])
