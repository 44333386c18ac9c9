# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Where somebody tracks time: a time zone, and how dates and times are written there."""

import datetime
import zoneinfo


class Place:
    def __init__(self, zone, locale, time_format, date_format, weekdays, month_days):
        self.zone_info = zoneinfo.ZoneInfo(zone)
        self.zone, self.locale = zone, locale
        self.time_format, self.date_format, self.weekdays = time_format, date_format, weekdays
        self.month_days = month_days

    def instant(self, local, fold=0):
        """The seconds since 1970 of a local time, as "2026-11-19T15:00"."""
        return int(datetime.datetime.fromisoformat(local).replace(tzinfo=self.zone_info, fold=fold).timestamp())

    def time(self, local):
        """A local time as the window shows it, with ordinary spaces."""
        return datetime.datetime.fromisoformat(local).strftime(self.time_format)

    def date(self, day):
        """A day as somebody types it."""
        return datetime.date.fromisoformat(day).strftime(self.date_format)

    def month_day(self, day):
        """A day beside its weekday."""
        month, number = day[5:7], int(day[8:])
        return self.month_days[month].format(number)

    def weekday(self, day):
        return self.weekdays[datetime.date.fromisoformat(day).weekday()]


NEW_YORK = Place("America/New_York", "en_US.UTF-8", "%-I:%M %p", "%m/%d/%Y",
                 ("Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"),
                 {"03": "Mar {}", "10": "Oct {}", "11": "Nov {}"})
BERLIN = Place("Europe/Berlin", "de_DE.UTF-8", "%H:%M", "%d.%m.%Y",
               ("Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag", "Sonntag"),
               {"03": "{}. März", "10": "{}. Okt.", "11": "{}. Nov."})
