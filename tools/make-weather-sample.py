#!/usr/bin/python3
"""Writes data/weather-sample.csv: a year of hourly outdoor states (timestamp,
tdb, rh) for a temperate city, for the batch examples and tests.

The hours are synthetic. They are built from a small table of monthly
statistics of the kind that published monthly climate normals give (mean
dry-bulb temperature, mean daily range, mean relative humidity); the numbers
below are round values written for an imaginary temperate city in the
northern mid-latitudes, not taken from any station's records.

  * The daily mean temperature follows the monthly means, interpolated
    smoothly between mid-months, plus a day-to-day weather anomaly (a
    first-order autoregressive series, sigma 2.5 K, lag-one correlation 0.75).
  * Within the day the temperature follows a cosine with its minimum at 05:00
    and its maximum at 15:00, over the month's mean daily range scaled by a
    random factor for each day (cloudy and clear days).
  * The moisture of the air changes slowly: each day's dew point is the one
    that gives the month's mean relative humidity at the day's mean
    temperature, plus its own small anomaly; the hourly relative humidity is
    then the ratio of the vapour pressure at that dew point to the saturation
    pressure at the hour's temperature (Magnus formula), held within 0.12 … 1.

The seed is fixed, so the file is the same on every run. Standard library
only. Usage: /usr/bin/python3 tools/make-weather-sample.py [OUTPUT]
"""

import calendar
import datetime
import math
import os
import random
import sys

# Month: mean dry bulb (°C), mean daily range (K), mean relative humidity.
MONTHLY = [
    (-2.5, 8.0, 0.58),
    (0.5, 8.5, 0.56),
    (6.5, 9.5, 0.52),
    (13.5, 10.5, 0.50),
    (19.5, 10.5, 0.55),
    (24.0, 9.5, 0.62),
    (26.5, 8.0, 0.75),
    (25.5, 8.0, 0.77),
    (21.0, 9.0, 0.68),
    (14.0, 9.5, 0.62),
    (6.0, 8.5, 0.62),
    (-0.5, 8.0, 0.60),
]

YEAR = 2025  # not a leap year: 8,760 hours
SEED = 20250101


def saturation_pressure(t):
    """Magnus formula over water, Pa."""
    return 610.94 * math.exp(17.625 * t / (t + 243.04))


def dew_point(pv):
    x = math.log(pv / 610.94)
    return 243.04 * x / (17.625 - x)


def month_middles():
    """Day of the year (from 0) at the middle of each month."""
    middles = []
    for month in range(1, 13):
        start = datetime.date(YEAR, month, 1).timetuple().tm_yday - 1
        middles.append(start + calendar.monthrange(YEAR, month)[1] / 2.0)
    return middles


MIDDLES = month_middles()


def monthly_value(day_of_year, index):
    """A monthly statistic, interpolated linearly between the months' middles
    (December to January across the new year)."""
    x = day_of_year + 0.5
    for a in range(12):
        b = (a + 1) % 12
        xa = MIDDLES[a]
        xb = MIDDLES[b] + (365 if b == 0 else 0)
        xx = x + 365 if x < MIDDLES[0] else x
        if xa <= xx < xb:
            w = (xx - xa) / (xb - xa)
            return (1 - w) * MONTHLY[a][index] + w * MONTHLY[b][index]
    raise AssertionError("unreachable")


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "data",
                                                            "weather-sample.csv")
    rng = random.Random(SEED)
    anomaly = 0.0
    moisture = 0.0
    rows = []
    day = datetime.date(YEAR, 1, 1)
    for d in range(365):
        anomaly = 0.75 * anomaly + rng.gauss(0.0, 2.5 * math.sqrt(1 - 0.75 ** 2))
        moisture = 0.6 * moisture + rng.gauss(0.0, 0.08)
        mean = monthly_value(d, 0) + anomaly
        daily_range = monthly_value(d, 1) * rng.uniform(0.6, 1.3)
        rh_mean = min(0.95, max(0.25, monthly_value(d, 2) + moisture))
        tdp = dew_point(rh_mean * saturation_pressure(mean))
        pv = saturation_pressure(tdp)
        for hour in range(24):
            # Minimum at 05:00, maximum at 15:00: a cosine stretched over the two halves.
            if 5 <= hour < 15:
                phase = math.pi * (hour - 5) / 10.0
            else:
                phase = math.pi + math.pi * ((hour - 15) % 24) / 14.0
            t = mean - 0.5 * daily_range * math.cos(phase)
            rh = min(1.0, max(0.12, pv / saturation_pressure(t)))
            stamp = datetime.datetime(day.year, day.month, day.day, hour).strftime("%Y-%m-%dT%H:%M")
            rows.append("%s,%.1f,%.3f" % (stamp, t, rh))
        day += datetime.timedelta(days=1)
    with open(out, "w", newline="\n") as f:
        f.write("timestamp,tdb,rh\n")
        f.write("\n".join(rows))
        f.write("\n")


if __name__ == "__main__":
    main()
