#include "QZParserSQL/platform/Date.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "QZParserSQL/platform/StringResource.h"

namespace {

static_assert(sizeof(QZDate) == 16);

constexpr int kSecondsPerDay = 24 * 60 * 60;
// Day numbers of 1 January 100 and of the day behind 31 December 9999.
constexpr int kFirstDay = -657434;
constexpr int kDayLimit = 2958466;
// Days from 1 March of the year 0 to 30 December 1899, on which the count starts.
constexpr int kDaysBeforeStart = 693899;
constexpr int kDaysPer400Years = 146097;

// English names; three letters of a month's or a day's name abbreviate it.
constexpr std::u16string_view kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                           u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr std::u16string_view kWeekdays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                             u"Thursday", u"Friday", u"Saturday"};
constexpr std::size_t kAbbreviation = 3;

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

int DayOfYear(int year, int month, int day) {
    int days = day - 1;
    for (int earlier = 1; earlier < month; ++earlier) days += DaysInMonth(year, earlier);
    return days;
}

// Years are counted from March here, so that a leap day is the last of its year.
int DayNumber(int year, int month, int day) {
    const int marchYear = month > 2 ? year : year - 1;
    const int monthsSinceMarch = (month + 9) % 12;
    const int dayOfMarchYear = (153 * monthsSinceMarch + 2) / 5 + day - 1;
    return marchYear * 365 + marchYear / 4 - marchYear / 100 + marchYear / 400 + dayOfMarchYear - kDaysBeforeStart;
}

void SetDay(int dayNumber, QZCalendarTime& parts) {
    const int days = dayNumber + kDaysBeforeStart;
    const int era = days / kDaysPer400Years;
    const int dayOfEra = days % kDaysPer400Years;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfMarchYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthsSinceMarch = (5 * dayOfMarchYear + 2) / 153;
    parts.day = dayOfMarchYear - (153 * monthsSinceMarch + 2) / 5 + 1;
    parts.month = (monthsSinceMarch + 2) % 12 + 1;
    parts.year = era * 400 + yearOfEra + (parts.month <= 2 ? 1 : 0);
    // 1 January 100 was a Friday.
    parts.weekday = (dayNumber - kFirstDay + 5) % 7;
    parts.dayOfYear = DayOfYear(parts.year, parts.month, parts.day);
}

bool IsInCalendar(const QZCalendarTime& parts) {
    const auto within = [](int part, int low, int high) { return low <= part && part <= high; };
    return within(parts.year, 100, 9999) && within(parts.month, 1, 12) &&
           within(parts.day, 1, DaysInMonth(parts.year, parts.month)) && within(parts.hour, 0, 23) &&
           within(parts.minute, 0, 59) && within(parts.second, 0, 59);
}

// What is left to read of a text. A step that fails leaves it anywhere.
class Scanner {
 public:
    explicit Scanner(std::u16string_view text) : m_Rest(text) {}

    bool AtEnd() const { return m_Rest.empty(); }

    bool Take(char16_t unit) {
        if (AtEnd() || m_Rest.front() != unit) return false;
        m_Rest.remove_prefix(1);
        return true;
    }

    bool TakeBlanks() {
        const bool any = Take(u' ');
        while (Take(u' ')) continue;
        return any;
    }

    bool TakeNumber(std::size_t minDigits, std::size_t maxDigits, int& number) {
        std::size_t digits = 0;
        number = 0;
        while (digits < maxDigits && digits < m_Rest.size() && m_Rest[digits] >= u'0' && m_Rest[digits] <= u'9') {
            number = number * 10 + (m_Rest[digits++] - u'0');
        }
        m_Rest.remove_prefix(digits);
        return digits >= minDigits;
    }

    // Letters of ASCII are the same in both cases.
    bool TakeWord(std::u16string_view word) {
        if (m_Rest.size() < word.size()) return false;
        for (std::size_t i = 0; i < word.size(); ++i) {
            if ((m_Rest[i] | 0x20) != (word[i] | 0x20)) return false;
        }
        m_Rest.remove_prefix(word.size());
        return true;
    }

 private:
    std::u16string_view m_Rest;
};

bool TakeMonthName(Scanner& text, int& month) {
    for (month = 1; month <= 12; ++month) {
        if (text.TakeWord(kMonths[month - 1].substr(0, kAbbreviation))) return true;
    }
    return false;
}

bool TakeIsoDay(Scanner& text, QZCalendarTime& parts) {
    return text.TakeNumber(4, 4, parts.year) && text.Take(u'-') && text.TakeNumber(1, 2, parts.month) &&
           text.Take(u'-') && text.TakeNumber(1, 2, parts.day);
}

bool TakeSlashedDay(Scanner& text, QZCalendarTime& parts) {
    return text.TakeNumber(1, 2, parts.month) && text.Take(u'/') && text.TakeNumber(1, 2, parts.day) &&
           text.Take(u'/') && text.TakeNumber(4, 4, parts.year);
}

bool TakeNamedDay(Scanner& text, QZCalendarTime& parts) {
    return text.TakeNumber(1, 2, parts.day) && text.Take(u'-') && TakeMonthName(text, parts.month) && text.Take(u'-') &&
           text.TakeNumber(4, 4, parts.year);
}

// "AM" or "PM" behind a time of 1 to 12 hours, or nothing.
bool TakeHalfOfDay(Scanner& text, QZCalendarTime& parts) {
    text.TakeBlanks();
    if (text.AtEnd()) return true;
    const bool afternoon = text.TakeWord(u"PM");
    if ((!afternoon && !text.TakeWord(u"AM")) || parts.hour < 1 || parts.hour > 12) return false;
    parts.hour = parts.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

bool TakeTime(Scanner& text, QZCalendarTime& parts) {
    if (!text.TakeNumber(1, 2, parts.hour) || !text.Take(u':') || !text.TakeNumber(2, 2, parts.minute)) return false;
    if (text.Take(u':') && !text.TakeNumber(2, 2, parts.second)) return false;
    return TakeHalfOfDay(text, parts);
}

using TakeDay = bool (*)(Scanner& text, QZCalendarTime& parts);

std::optional<double> ReadDate(Scanner text, TakeDay takeDay) {
    QZCalendarTime parts;
    text.TakeBlanks();
    if (!takeDay(text, parts)) return std::nullopt;
    const bool timeFollows = (takeDay == TakeIsoDay && text.Take(u'T')) || (text.TakeBlanks() && !text.AtEnd());
    if (timeFollows && !TakeTime(text, parts)) return std::nullopt;
    text.TakeBlanks();
    return text.AtEnd() ? QZDateFromCalendar(parts) : std::nullopt;
}

CString InvalidText() {
    constexpr unsigned kInvalidDateTimeString = 55296;
    return QZLoadString(kInvalidDateTimeString, u"Invalid DateTime");
}

void Append(int number, int width, char16_t fill, std::u16string& text) {
    const std::string digits = std::to_string(number);
    for (int missing = width - static_cast<int>(digits.size()); missing > 0; --missing) text += fill;
    text.append(digits.begin(), digits.end());
}

void Append(std::u16string_view format, const QZCalendarTime& parts, std::u16string& text);

// A conversion that stands for several; empty when it doesn't.
std::u16string_view Expansion(char16_t conversion) {
    switch (conversion) {
        case u'c':
            return u"%a %b %e %H:%M:%S %Y";
        case u'D':
        case u'x':
            return u"%m/%d/%y";
        case u'F':
            return u"%Y-%m-%d";
        case u'R':
            return u"%H:%M";
        case u'T':
        case u'X':
            return u"%H:%M:%S";
        default:
            return {};
    }
}

// A conversion that stands for a word; empty when it doesn't.
std::u16string_view Word(char16_t conversion, const QZCalendarTime& parts) {
    const std::u16string_view weekday = kWeekdays[parts.weekday];
    const std::u16string_view month = kMonths[parts.month - 1];
    switch (conversion) {
        case u'a':
            return weekday.substr(0, kAbbreviation);
        case u'A':
            return weekday;
        case u'b':
            return month.substr(0, kAbbreviation);
        case u'B':
            return month;
        case u'p':
            return parts.hour < 12 ? u"AM" : u"PM";
        case u'%':
            return u"%";
        default:
            return {};
    }
}

struct NumberForm {
    int number;
    int width = 2;
    char16_t fill = u'0';
};

std::optional<NumberForm> Number(char16_t conversion, const QZCalendarTime& parts) {
    switch (conversion) {
        case u'd':
            return NumberForm{parts.day};
        case u'e':
            return NumberForm{parts.day, 2, u' '};
        case u'H':
            return NumberForm{parts.hour};
        case u'I':
            return NumberForm{(parts.hour + 11) % 12 + 1};
        case u'j':
            return NumberForm{parts.dayOfYear + 1, 3};
        case u'm':
            return NumberForm{parts.month};
        case u'M':
            return NumberForm{parts.minute};
        case u'S':
            return NumberForm{parts.second};
        case u'U':
            return NumberForm{(parts.dayOfYear + 7 - parts.weekday) / 7};
        case u'w':
            return NumberForm{parts.weekday, 1};
        case u'W':
            return NumberForm{(parts.dayOfYear + 7 - (parts.weekday + 6) % 7) / 7};
        case u'y':
            return NumberForm{parts.year % 100};
        case u'Y':
            return NumberForm{parts.year, 4};
        default:
            return std::nullopt;
    }
}

void AppendConversion(std::u16string_view conversion, const QZCalendarTime& parts, std::u16string& text) {
    const std::u16string_view expansion = Expansion(conversion[1]);
    if (!expansion.empty()) return Append(expansion, parts, text);
    if (const auto form = Number(conversion[1], parts)) return Append(form->number, form->width, form->fill, text);
    const std::u16string_view word = Word(conversion[1], parts);
    text += word.empty() ? conversion : word;
}

void Append(std::u16string_view format, const QZCalendarTime& parts, std::u16string& text) {
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] == u'%' && i + 1 < format.size()) {
            AppendConversion(format.substr(i++, 2), parts, text);
        } else {
            text += format[i];
        }
    }
}

}  // namespace

std::optional<QZCalendarTime> QZCalendarFromDate(double date) {
    if (!(date > kFirstDay - 1 && date < kDayLimit)) return std::nullopt;
    const double whole = std::trunc(date);
    const int seconds = static_cast<int>(std::lround(std::fabs(date - whole) * kSecondsPerDay));
    const int day = static_cast<int>(whole) + seconds / kSecondsPerDay;
    if (day >= kDayLimit) return std::nullopt;
    QZCalendarTime parts;
    SetDay(day, parts);
    parts.hour = seconds % kSecondsPerDay / 3600;
    parts.minute = seconds / 60 % 60;
    parts.second = seconds % 60;
    return parts;
}

std::optional<double> QZDateFromCalendar(const QZCalendarTime& parts) {
    if (!IsInCalendar(parts)) return std::nullopt;
    const int day = DayNumber(parts.year, parts.month, parts.day);
    const double time = ((parts.hour * 60 + parts.minute) * 60 + parts.second) / static_cast<double>(kSecondsPerDay);
    return day < 0 ? day - time : day + time;
}

QZDate QZDateFromText(std::u16string_view text) {
    for (const TakeDay takeDay : {TakeIsoDay, TakeSlashedDay, TakeNamedDay}) {
        if (const auto date = ReadDate(Scanner(text), takeDay)) return {*date, kDateValid};
    }
    return {0, kDateInvalid};
}

CString DateToString(const QZDate& date, const char16_t* format) {
    constexpr std::size_t kBuffer = 256;
    if (format == nullptr) throw std::invalid_argument("DateToString: no format");
    if (date.m_status == kDateNull) return {};
    const auto parts = date.m_status == kDateValid ? QZCalendarFromDate(date.m_dt) : std::nullopt;
    if (!parts) return InvalidText();
    std::u16string text;
    Append(format, *parts, text);
    return text.size() < kBuffer ? CString(text) : CString();
}
