// Dates as the automation interface of the desktop counts them, apart from the process's locale and time zone.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// What m_status of a date tells.
inline constexpr std::int32_t kDateValid = 0;
inline constexpr std::int32_t kDateInvalid = 1;
inline constexpr std::int32_t kDateNull = 2;

/// A point in time: days since 30 December 1899, with the time of day as the fraction's magnitude, so that -1.25 is
/// 29 December 1899, 6:00. The number counts only while the status is kDateValid.
struct QZDate {
    double m_dt = 0;                     ///< days
    std::int32_t m_status = kDateValid;  ///< one of the three above
};

/// Parts of a date in the Gregorian calendar, years 100 to 9999.
struct QZCalendarTime {
    int year = 0;       ///< 100 to 9999
    int month = 0;      ///< from 1
    int day = 0;        ///< from 1
    int hour = 0;       ///< from 0
    int minute = 0;     ///< from 0
    int second = 0;     ///< from 0
    int weekday = 0;    ///< from 0, Sunday; not read by QZDateFromCalendar
    int dayOfYear = 0;  ///< from 0; not read by QZDateFromCalendar
};

/// The parts of a date, rounded to the nearest second. Nothing outside the years 100 to 9999.
QZ_API std::optional<QZCalendarTime> QZCalendarFromDate(double date);

/// The date of some parts. Nothing where a part is outside its range or the month has no such day.
QZ_API std::optional<double> QZDateFromCalendar(const QZCalendarTime& parts);

/// Reads a date, with the status kDateInvalid where the text is none. Accepted, between blanks:
/// `yyyy-mm-dd`, `m/d/yyyy` and `d-Mon-yyyy` (English, in any case), months and days of one or two digits, each alone
/// or followed by blanks (`T` too in the first form) and a time `h:mm[:ss]`, that may have blanks and `AM` or `PM` (in
/// any case) behind it.
QZ_API QZDate QZDateFromText(std::u16string_view text);

/// Writes a date. `%` in the format announces a conversion of the C library's strftime, English as in the "C" locale:
/// a A b B c d D e F H I j m M p R S T U w W x X y Y %; others are copied as they stand. A text of more than 255 units
/// becomes an empty one, the status kDateNull yields an empty one too; kDateInvalid, or a number outside the calendar,
/// yields the string resource 55296 or else "Invalid DateTime". Throws std::invalid_argument for a null format.
QZ_API CString DateToString(const QZDate& date, const char16_t* format);
