#!/usr/bin/env python3
"""csv_writer.py LEDGER: reads a CSV ledger and prints the median of the milliseconds that the csv module takes to
write its rows again. Fails when what it writes is another text."""

import csv
import io
import statistics
import sys
import time

ledger = open(sys.argv[1], encoding="utf-8", newline="").read()
rows = list(csv.reader(io.StringIO(ledger)))


def milliseconds():
    text = io.StringIO(newline="")
    start = time.perf_counter()
    csv.writer(text, lineterminator="\n").writerows(rows)
    passed = time.perf_counter() - start
    if text.getvalue() != ledger:
        sys.exit("csv_writer: the csv module writes another text")
    return passed * 1000


print(f"{statistics.median(milliseconds() for _ in range(5)):.1f}")
