#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""readoffice.py FILE.fods: what LibreOffice has read of a CSV file and written as a flat spreadsheet, for the tests.

All rows but the header row, one a line: cells separated by bars; what is missing is empty, times are ISO 8601, numbers
have 17 digits. A number or a time that LibreOffice took for text stands in quotation marks.
"""
import sys
import xml.etree.ElementTree

TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
OFFICE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}"


def cells(row, width):
    found = []
    for cell in row.iter(TABLE + "table-cell"):
        kind = cell.get(OFFICE + "value-type")
        if kind == "float":
            text = format(float(cell.get(OFFICE + "value")), ".17g")
        elif kind == "date":
            date = cell.get(OFFICE + "date-value")
            text = date if "T" in date else date + "T00:00:00"
        else:
            text = '"%s"' % "".join(cell.itertext()) if kind else ""
        found += [text] * int(cell.get(TABLE + "number-columns-repeated", "1"))
    return (found + [""] * width)[:width]


rows = [
    row
    for row in xml.etree.ElementTree.parse(sys.argv[1]).iter(TABLE + "table-row")
    if any(cell.get(OFFICE + "value-type") for cell in row)
]
width = sum(1 for cell in rows[0].iter(TABLE + "table-cell") if cell.get(OFFICE + "value-type"))
for row in rows[1:]:
    for _ in range(int(row.get(TABLE + "number-rows-repeated", "1"))):
        print("|".join(cells(row, width)))
