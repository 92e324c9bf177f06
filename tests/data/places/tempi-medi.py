#!/usr/bin/env python3
"""Draws the cases of the named mean times (a capital's mean time kept by a whole zone: Rome's
RMT, Paris's PMT, Dublin's DMT...) from the system's time-zone database through Python's
zoneinfo, independently of the program.

For every zone of zoneinfo.available_timezones(), the periods whose abbreviation is not "LMT"
and whose offset has seconds (a mean time, not a standard zone) are found by walking the zone in
steps of six hours from 1800 to 1980; for each such period up to three local moments are drawn
(random state 1866), each at least two days away from the period's ends. One line a case:

    zone <TAB> DD/MM/YYYY <TAB> HH:MM <TAB> offset in seconds east <TAB> abbreviation

Regenerate with `python3 tests/data/places/tempi-medi.py > tests/data/places/tempi-medi.tsv`.
"""
import random
from datetime import datetime, timedelta, timezone
from zoneinfo import ZoneInfo, available_timezones

rng = random.Random(1866)
passo = timedelta(hours=6)
inizio = datetime(1800, 1, 1, tzinfo=timezone.utc)
fine = datetime(1980, 1, 1, tzinfo=timezone.utc)
for nome in sorted(available_timezones()):
    if nome.startswith(("posix/", "right/")) or nome in ("Factory", "localtime"):
        continue
    z = ZoneInfo(nome)
    periodi = []  # [first utc, last utc, offset, abbreviation]
    t = inizio
    while t < fine:
        loc = t.astimezone(z)
        off = int(loc.utcoffset().total_seconds())
        abbr = loc.tzname()
        if periodi and periodi[-1][2] == off and periodi[-1][3] == abbr:
            periodi[-1][1] = t
        else:
            periodi.append([t, t, off, abbr])
        t += passo
    for a, b, off, abbr in periodi:
        if abbr == "LMT" or off % 60 == 0:
            continue
        a, b = a + timedelta(days=2), b - timedelta(days=2)
        if b <= a:
            continue
        for _ in range(3):
            u = a + timedelta(seconds=rng.randrange(int((b - a).total_seconds())))
            loc = u.astimezone(z)
            print(f"{nome}\t{loc:%d/%m/%Y}\t{loc:%H:%M}\t{off}\t{abbr}")
