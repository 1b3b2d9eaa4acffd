#include <gtest/gtest.h>

#include <cstdlib>

#include "ingest/FeedDate.h"
#include "kit/ManualClock.h"

namespace feedloom {
namespace {

struct DateCase {
  const char* written;
  const char* stored;
};

std::string Normalized(std::string text) {
  NormalizeFeedDate(text);
  return text;
}

void ExpectStored(std::initializer_list<DateCase> cases) {
  for (const DateCase& c : cases) EXPECT_EQ(Normalized(c.written), c.stored) << c.written;
}

TEST(FeedDate, ReadsRfc822) {
  ExpectStored({{"Tue, 10 Jun 2003 04:00:00 GMT", "2003-06-10 04:00:00"},
                {"  Tue,  10  June  2003  04:00:07  ut \n", "2003-06-10 04:00:07"},
                {"Tue, 10 6 2003 04:00:00 Z", "2003-06-10 04:00:00"},
                {"Tue, 10 jun. 2003 04:00:00 GMT+9", "2003-06-10 04:00:00"},
                {"x 1 Jan 1970 00:00:00 GMT", "1970-01-01 00:00:00"}});
}

TEST(FeedDate, AddsTheOffsetAsItIsWritten) {
  ExpectStored({{"Tue, 10 Jun 2003 04:00:00 +0900", "2003-06-10 13:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 -0430", "2003-06-09 23:30:00"},
                {"Tue, 10 Jun 2003 04:00:00 EST", "2003-06-09 23:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 pdt", "2003-06-09 21:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 A", "2003-06-10 03:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 J", "2003-06-10 04:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 K", "2003-06-09 18:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 M", "2003-06-09 16:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 N", "2003-06-10 05:00:00"},
                {"Tue, 10 Jun 2003 04:00:00 Y", "2003-06-10 16:00:00"},
                {"Thu, 01 Jan 2004 01:00:00 MST", "2003-12-31 18:00:00"},
                {"Mon, 31 Jun 2003 04:00:00 GMT", "2003-07-01 04:00:00"}});
}

TEST(FeedDate, AnRfc822DateThatBreaksOffKeepsWhatWasRead) {
  ExpectStored({{"Tue, 10 Jun 2003 04:10:30", "2003-06-10 04:10:00"},
                {"Tue, 10 Jun 2003 04:30", "2003-06-10 04:00:00"},
                {"Tue, 10 Jun 2003 noon", "2003-06-10 00:00:00"},
                {"Tue, 10 Jun 2003", ""},
                {"Tue, 10 Jun", ""},
                {"Tuesday", ""}});
}

TEST(FeedDate, ReadsIso8601) {
  ExpectStored({{"2003-06-10T04:00:00Z", "2003-06-10 04:00:00"},
                {"2003-06-10 04:05:06", "2003-06-10 04:05:06"},
                {"2003-06-10", "2003-06-10 00:00:00"},
                {"2003-06-10T04:00:00-05:00", "2003-06-09 23:00:00"},
                {"2003-06-10T04:00:00+09:30", "2003-06-10 13:30:00"},
                {"2003-06-10T04:00:00est", "2003-06-09 23:00:00"},
                {"2003-06-10T04:00:00.000Z", "2003-06-10 04:00:00"},
                {"2003-06-10T04:30", "2003-06-10 04:00:00"},
                {"2003-06-10T04", "2003-06-10 00:00:00"},
                {"2003-6-1T4:5:6", "2003-06-01 04:05:06"}});
}

TEST(FeedDate, AnIsoOffsetWithoutAColonShiftsByTheCenturysDigits) {
  ExpectStored({{"2003-06-10T04:00:00+0900", "2003-06-10 04:20:00"},
                {"1999-06-10T04:00:00-0900", "1999-06-10 03:41:00"}});
}

TEST(FeedDate, WhatCannotBeReadBecomesEmpty) {
  ExpectStored({{"", ""},
                {" \t\n", ""},
                {"10 Jun 2003 04:00:00 GMT", ""},
                {"Tue, 10 Jun 03 04:00:00 GMT", ""},
                {"Tue, 10 Foo 2003 04:00:00 GMT", ""},
                {"Tue, 32 Jun 2003 04:00:00 GMT", ""},
                {"Tue, 10 Jun 3001 04:00:00 GMT", ""},
                {"2003", ""},
                {"2003-06", ""},
                {"2003-13-01", ""},
                {"1969-12-31T23:00:00Z", ""},
                {"2003-06-10T999999999:00:00Z", ""},
                {"99999999999999999999-01-01", ""}});
}

TEST(FeedDate, ATwoDigitYearIsOneOf1900) {
  ExpectStored({{"Thu, 10 Jun 99 04:00:00 GMT", "1999-06-10 04:00:00"}});
}

// The machine's time zone while the object lives.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    setenv("TZ", name, 1);
    tzset();
  }
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
};

TEST(FeedDate, OnlyATimeThatTheMachinesZoneLeavesOutIsMoved) {
  const TimeZone newYork("EST5EDT,M3.2.0,M11.1.0");
  ExpectStored({{"2008-03-09T02:30:00", "2008-03-09 03:30:00"},
                {"2008-03-09T01:59:59", "2008-03-09 01:59:59"},
                {"2008-03-08T22:00:00+04:00", "2008-03-09 03:00:00"},
                {"2008-11-02T01:30:00", "2008-11-02 01:30:00"},
                {"2008-07-01T12:00:00", "2008-07-01 12:00:00"}});
}

TEST(FeedDate, IsShownAsTimeTodayAndAsDateOtherwise) {
  const ManualClock clock(NoonOf(2008, 5, 1));
  EXPECT_EQ(FormatPostDateForDisplay("2008-05-01 09:30:00", clock), "09:30:00");
  EXPECT_EQ(FormatPostDateForDisplay("2008-05-02 09:30:00", clock), "2008-05-02");
  EXPECT_EQ(FormatPostDateForDisplay("2007-5-1 9:3:0", clock), "2007-05-01");
  for (const char* unreadable : {"", "2008-05-01", "2008-05-01 09:30", "1969-05-01 09:30:00",
                                 "2008-00-01 09:30:00", "2008-05-32 09:30:00", "text"}) {
    EXPECT_EQ(FormatPostDateForDisplay(unreadable, clock), "") << unreadable;
  }
}

}  // namespace
}  // namespace feedloom
