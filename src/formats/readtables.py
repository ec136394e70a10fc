#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""readtables.py FILE.nc FILE.csv: what xarray and netCDF4 read of the one and pandas of the other, for the tests.

Three times all rows, one a line: the cells in the order of the CSV file's columns, separated by bars; what is missing is
empty, times are ISO 8601, numbers have 17 digits.
"""
import sys

import netCDF4
import numpy
import pandas
import xarray


def cell(value):
    if value is numpy.ma.masked or pandas.isna(value):
        return ""
    if isinstance(value, (numpy.datetime64, pandas.Timestamp)):
        return pandas.Timestamp(value).isoformat()
    if hasattr(value, "isoformat"):
        return value.isoformat()
    return format(float(value), ".17g")


def tell(name, columns):
    print(name)
    for row in zip(*columns):
        print("|".join(cell(value) for value in row))


def times(variable):
    values = variable[:]
    dates = netCDF4.num2date(numpy.ma.filled(values, 0), variable.units, variable.calendar)
    return [numpy.ma.masked if hidden else date for date, hidden in zip(dates, numpy.ma.getmaskarray(values))]


table = pandas.read_csv(sys.argv[2], parse_dates=["time"])
tell("pandas", [table[name] for name in table.columns])
with xarray.open_dataset(sys.argv[1]) as dataset:
    tell("xarray", [dataset[name].values for name in table.columns])
with netCDF4.Dataset(sys.argv[1]) as dataset:
    tell("netCDF4", [times(dataset[name]) if name == "time" else dataset[name][:] for name in table.columns])
