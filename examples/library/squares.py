"""Writes a sheet of squares: an example of the Python module."""

import linealis

sheet = linealis.Sheet("grid", paper_size="A4", units="cm", vertical_spacing=0.5, horizontal_spacing=0.5, line_color="#6080C0")
sheet.save("squares-0.5cm.pdf")
