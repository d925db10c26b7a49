#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

#include "QZParserSQL/platform/Date.h"
#include "QZParserSQL/platform/StringResource.h"

namespace {

constexpr const char16_t* kIso = u"%Y-%m-%d %H:%M:%S";

std::string Text(double date) { return DateToString({date, kDateValid}, kIso).ToUtf8(); }
std::string Format(double date, const char16_t* format) { return DateToString({date, kDateValid}, format).ToUtf8(); }

// The text that a text becomes as a date.
std::string Read(std::u16string_view text) { return DateToString(QZDateFromText(text), kIso).ToUtf8(); }

// The system's calendar of a day number.
tm SystemCalendar(int day, int second) {
    const time_t seconds = (static_cast<time_t>(day) - 25569) * 86400 + second;
    tm parts;
    EXPECT_NE(gmtime_r(&seconds, &parts), nullptr);
    return parts;
}

TEST(Date, CountsDaysFromTheEndOf1899) {
    EXPECT_EQ(Text(0), "1899-12-30 00:00:00");
    EXPECT_EQ(Text(1), "1899-12-31 00:00:00");
    EXPECT_EQ(Text(2.5), "1900-01-01 12:00:00");
    EXPECT_EQ(Text(36526), "2000-01-01 00:00:00");
    EXPECT_EQ(Text(36585), "2000-02-29 00:00:00");
    EXPECT_EQ(Text(61), "1900-03-01 00:00:00");
    EXPECT_EQ(Text(60), "1900-02-28 00:00:00") << "no leap year";
}

TEST(Date, TakesTheTimeOfDayFromTheFractionsMagnitude) {
    EXPECT_EQ(Text(-1.25), "1899-12-29 06:00:00");
    EXPECT_EQ(Text(-0.5), "1899-12-30 12:00:00");
    EXPECT_EQ(Text(0.5), "1899-12-30 12:00:00");
}

TEST(Date, RoundsToTheNearestSecond) {
    EXPECT_EQ(Text(1 + 0.4 / 86400), "1899-12-31 00:00:00");
    EXPECT_EQ(Text(1 + 0.6 / 86400), "1899-12-31 00:00:01");
    EXPECT_EQ(Text(2 - 0.4 / 86400), "1900-01-01 00:00:00") << "into the next day";
    EXPECT_EQ(Text(-2 - (1 - 0.4 / 86400)), "1899-12-29 00:00:00") << "which is later before the start, too";
}

TEST(Date, EndsWithTheYears100And9999) {
    EXPECT_EQ(Text(-657434), "0100-01-01 00:00:00");
    EXPECT_EQ(Text(-657434.5), "0100-01-01 12:00:00");
    EXPECT_EQ(Text(2958465.5), "9999-12-31 12:00:00");
    for (const double outside : {-657435.0, 2958466.0, 2958466 - 0.3 / 86400, 1e300, -1e300,
                                 std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(QZCalendarFromDate(outside)) << outside;
        EXPECT_EQ(Text(outside), "Invalid DateTime") << outside;
    }
}

TEST(Date, AgreesWithTheSystemsCalendar) {
    for (int day = -657434; day < 2958466; day += 13) {
        const tm expected = SystemCalendar(day, 0);
        const auto parts = QZCalendarFromDate(day);
        ASSERT_TRUE(parts);
        ASSERT_EQ(parts->year, expected.tm_year + 1900) << day;
        ASSERT_EQ(parts->month, expected.tm_mon + 1) << day;
        ASSERT_EQ(parts->day, expected.tm_mday) << day;
        ASSERT_EQ(parts->weekday, expected.tm_wday) << day;
        ASSERT_EQ(parts->dayOfYear, expected.tm_yday) << day;
        ASSERT_EQ(QZDateFromCalendar(*parts), day);
    }
}

TEST(Date, ComesBackFromItsParts) {
    for (const int day : {-657434, -40000, -1, 0, 1, 36585, 2958465}) {
        for (int second = 0; second < 86400; second += 7) {
            const double time = second / 86400.0;
            const double date = day < 0 ? day - time : day + time;
            ASSERT_EQ(QZDateFromCalendar(*QZCalendarFromDate(date)), date) << day << " " << second;
        }
    }
}

TEST(Date, HasNoPartsOutsideTheCalendar) {
    const QZCalendarTime leapDay{2000, 2, 29, 23, 59, 59};
    EXPECT_TRUE(QZDateFromCalendar(leapDay));
    for (const QZCalendarTime& wrong :
         {QZCalendarTime{99, 1, 1}, QZCalendarTime{10000, 1, 1}, QZCalendarTime{2000, 0, 1},
          QZCalendarTime{2000, 13, 1}, QZCalendarTime{2000, 1, 0}, QZCalendarTime{2000, 4, 31},
          QZCalendarTime{1900, 2, 29}, QZCalendarTime{2000, 1, 1, 24}, QZCalendarTime{2000, 1, 1, -1},
          QZCalendarTime{2000, 1, 1, 0, 60}, QZCalendarTime{2000, 1, 1, 0, 0, 60}}) {
        EXPECT_FALSE(QZDateFromCalendar(wrong)) << wrong.year << "-" << wrong.month << "-" << wrong.day;
    }
}

TEST(DateToString, RefusesANullFormat) {
    EXPECT_THROW(DateToString({0, kDateValid}, nullptr), std::invalid_argument);
    EXPECT_THROW(DateToString({0, kDateNull}, nullptr), std::invalid_argument);
    EXPECT_THROW(DateToString({0, kDateInvalid}, nullptr), std::invalid_argument);
}

TEST(DateToString, HasTextsForDatesThatAreNone) {
    EXPECT_EQ(DateToString({5, kDateNull}, kIso), u"");
    EXPECT_EQ(DateToString({5, kDateInvalid}, kIso), u"Invalid DateTime");
    EXPECT_EQ(DateToString({1e9, kDateValid}, kIso), u"Invalid DateTime");
}

TEST(DateToString, TakesTheInvalidTextFromTheHost) {
    struct Host {
        unsigned asked = 0;
    } host;
    QZSetStringLoader(
        [](void* context, unsigned id, CString& text) {
            static_cast<Host*>(context)->asked = id;
            text = u"kein Datum";
            return true;
        },
        &host);
    EXPECT_EQ(DateToString({5, kDateInvalid}, kIso), u"kein Datum");
    EXPECT_EQ(host.asked, 55296U);
    QZSetStringLoader([](void*, unsigned, CString&) { return false; }, nullptr);
    EXPECT_EQ(DateToString({5, kDateInvalid}, kIso), u"Invalid DateTime");
    QZSetStringLoader(nullptr, nullptr);
    EXPECT_EQ(DateToString({5, kDateInvalid}, kIso), u"Invalid DateTime");
}

TEST(DateToString, WritesEachConversion) {
    const double date = 45355 + (13 * 3600 + 5 * 60 + 9) / 86400.0;  // Monday, 4 March 2024
    EXPECT_EQ(Format(date, u"%a %A %b %B"), "Mon Monday Mar March");
    EXPECT_EQ(Format(date, u"%d|%e|%m|%y|%Y|%j"), "04| 4|03|24|2024|064");
    EXPECT_EQ(Format(date, u"%H|%I|%M|%S|%p"), "13|01|05|09|PM");
    EXPECT_EQ(Format(45355, u"%I %p"), "12 AM");
    EXPECT_EQ(Format(date, u"%c"), "Mon Mar  4 13:05:09 2024");
    EXPECT_EQ(Format(date, u"%x %X %D %T %F %R"), "03/04/24 13:05:09 03/04/24 13:05:09 2024-03-04 13:05");
    EXPECT_EQ(Format(date, u"%w %U %W"), "1 09 10");
    EXPECT_EQ(Format(date, u"100%% é\U0001F600"), "100% é\U0001F600");
    EXPECT_EQ(Format(date, u"%Q %é %"), "%Q %é %") << "what is no conversion";
    EXPECT_EQ(Format(date, u""), "");
}

TEST(DateToString, AgreesWithTheCLibrary) {
    std::mt19937 random(1);
    const char* narrow = "%a %A %b %B %c %d %D %e %F %H %I %j %m %M %p %R %S %T %U %w %W %x %X %y";
    const std::u16string format(narrow, narrow + std::string(narrow).size());
    for (int round = 0; round < 5000; ++round) {
        const int day = std::uniform_int_distribution<int>(-328000, 2958465)(random);  // years of four digits
        const int second = std::uniform_int_distribution<int>(0, 86399)(random);
        const tm parts = SystemCalendar(day, second);
        char expected[512];
        ASSERT_GT(strftime(expected, sizeof expected, narrow, &parts), 0U);
        const double time = second / 86400.0;
        ASSERT_EQ(Format(day < 0 ? day - time : day + time, format.c_str()), expected) << day << " " << second;
    }
}

TEST(DateToString, HasRoomFor255Units) {
    EXPECT_EQ(Format(0, std::u16string(255, u'x').c_str()), std::string(255, 'x'));
    EXPECT_EQ(Format(0, std::u16string(256, u'x').c_str()), "");
    EXPECT_EQ(Format(0, (std::u16string(252, u'x') + u"%Y").c_str()), "");
}

TEST(DateFromText, ReadsTheWrittenForms) {
    EXPECT_EQ(Read(u"2024-03-04"), "2024-03-04 00:00:00");
    EXPECT_EQ(Read(u"2024-3-4"), "2024-03-04 00:00:00");
    EXPECT_EQ(Read(u"2024-03-04 13:05:09"), "2024-03-04 13:05:09");
    EXPECT_EQ(Read(u"2024-03-04T13:05:09"), "2024-03-04 13:05:09");
    EXPECT_EQ(Read(u"2024-03-04 13:05"), "2024-03-04 13:05:00");
    EXPECT_EQ(Read(u"3/4/2024"), "2024-03-04 00:00:00") << "the month stands first";
    EXPECT_EQ(Read(u"12/31/1999 11:59:59 PM"), "1999-12-31 23:59:59");
    EXPECT_EQ(Read(u"4-Mar-2024"), "2024-03-04 00:00:00");
    EXPECT_EQ(Read(u"04-mAR-2024 1:05 pm"), "2024-03-04 13:05:00");
    EXPECT_EQ(Read(u"  4-Mar-2024   1:05:09   AM  "), "2024-03-04 01:05:09");
    EXPECT_EQ(Read(u"29-Feb-2024"), "2024-02-29 00:00:00");
    EXPECT_EQ(Read(u"0100-01-01"), "0100-01-01 00:00:00");
    EXPECT_EQ(Read(u"9999-12-31 23:59:59"), "9999-12-31 23:59:59");
}

TEST(DateFromText, KnowsTheMonths) {
    const char16_t* names[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                               u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    for (int month = 1; month <= 12; ++month) {
        const QZDate date = QZDateFromText(std::u16string(u"1-") + names[month - 1] + u"-2001");
        EXPECT_EQ(date.m_dt, QZDateFromCalendar({2001, month, 1}));
    }
}

TEST(DateFromText, CountsTwelveHoursTwice) {
    EXPECT_EQ(Read(u"1/2/2003 12:00 AM"), "2003-01-02 00:00:00");
    EXPECT_EQ(Read(u"1/2/2003 12:30 PM"), "2003-01-02 12:30:00");
    EXPECT_EQ(Read(u"1/2/2003 1:00AM"), "2003-01-02 01:00:00");
    EXPECT_EQ(Read(u"1/2/2003 0:00"), "2003-01-02 00:00:00");
}

TEST(DateFromText, RefusesEverythingElse) {
    for (const char16_t* text : {u"",
                                 u" ",
                                 u"x",
                                 u"2024",
                                 u"2024-03",
                                 u"2024-13-01",
                                 u"2024-02-30",
                                 u"1900-02-29",
                                 u"24-03-04",
                                 u"0099-01-01",
                                 u"2024-03-04x",
                                 u"2024-03-04 x",
                                 u"2024-03-04T",
                                 u"2024-03-04 24:00",
                                 u"2024-03-04 12:60",
                                 u"2024-03-04 1:2",
                                 u"2024-03-04 12:00:60",
                                 u"2024-03-04 12",
                                 u"2024-03-04 12:00:",
                                 u"2024-03-04 13:00 PM",
                                 u"2024-03-04 0:00 AM",
                                 u"2024-03-04 12:00 XM",
                                 u"2024-03-04 12:00 AM x",
                                 u"13/1/2024",
                                 u"3/4/24",
                                 u"3/4/20244",
                                 u"3-4-2024",
                                 u"4-Mai-2024",
                                 u"4-March-2024",
                                 u"4-Mar-24",
                                 u"3/4/2024T10:00",
                                 u"45000.5",
                                 u"10:00",
                                 u"-2024-03-04",
                                 u"2024–03–04",
                                 u"٢٠٢٤-٠٣-٠٤",
                                 u"99999999999999999999-01-01"}) {
        const QZDate date = QZDateFromText(text);
        EXPECT_EQ(date.m_status, kDateInvalid) << CString(text).ToUtf8();
        EXPECT_EQ(date.m_dt, 0) << CString(text).ToUtf8();
    }
}

TEST(DateFromText, ComesBackFromItsText) {
    std::mt19937 random(2);
    for (int round = 0; round < 20000; ++round) {
        const int day = std::uniform_int_distribution<int>(-657434, 2958465)(random);
        const double time = std::uniform_int_distribution<int>(0, 86399)(random) / 86400.0;
        const double date = day < 0 ? day - time : day + time;
        const QZDate again = QZDateFromText(DateToString({date, kDateValid}, kIso));
        ASSERT_EQ(again.m_status, kDateValid);
        ASSERT_EQ(again.m_dt, date);
    }
}

TEST(Date, HasNoTimeZone) {
    const std::string before = Format(45355.5, u"%c") + Read(u"2024-03-31 02:30:00");
    setenv("TZ", "America/New_York", 1);
    tzset();
    EXPECT_EQ(Format(45355.5, u"%c") + Read(u"2024-03-31 02:30:00"), before);
    unsetenv("TZ");
    tzset();
}

}  // namespace
