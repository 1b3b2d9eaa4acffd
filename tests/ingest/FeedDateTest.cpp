#include <gtest/gtest.h>

#include <sstream>

#include "ingest/FeedDate.h"
#include "kit/ManualClock.h"

namespace feedloom {
namespace {

using Rows = std::vector<const char*>;

std::string Stored(std::string text) {
  NormalizeFeedDate(text);
  return text;
}

// `rows`: a stored form, the dates that have it with bars between them, a stored form ...
void ExpectStored(const Rows& rows) {
  for (std::size_t i = 0; i < rows.size(); i += 2) {
    std::istringstream dates(rows[i + 1]);
    for (std::string date; std::getline(dates, date, '|');)
      EXPECT_EQ(Stored(date), rows[i]) << date;
  }
}

// `zonesAndTimes`: what stands behind ten o'clock, and the hours and minutes that are stored.
void ExpectTimes(const std::string& date, const char* zonesAndTimes) {
  std::istringstream words(zonesAndTimes);
  for (std::string zone, time; words >> zone >> time;) {
    EXPECT_EQ(Stored(date + zone).substr(11, 5), time) << zone;
  }
}

TEST(FeedDate, IsReadAsFarAsItGoes) {
  ExpectStored(
      {"2003-06-09 04:05:07", "  Tue,  9  June  2003  04:05:07  ut \n|2003-6-9T4:5:7",
       "2003-06-10 04:00:00",
       "Tue, 10 6 2003 04:00:00 Z|Tue, 10 Jun 2003 04:30|2003-06-10T04:30|2003-06-10 04:00:00.000Z",
       "2003-06-10 04:10:00", "Tue, 10 Jun 2003 04:10:30", "2003-06-10 00:00:00",
       "Tue, 10 Jun 2003 noon|2003-06-10|2003-06-10T04", "1970-01-31 00:00:00",
       "x 31 jAn. 1970 00:00:00 GMT+9", "3000-07-01 04:00:00", "Mon, 31 Jun 3000 04:00:00 GMT",
       "2003-12-31 18:00:00", "Thu, 01 Jan 2004 01:00:00 MST", "1999-12-01 04:00:00",
       "Thu, 1 Dec 99 04:00:00 GMT|1999-12-01T04:00:00Z", "",
       " \t|Tuesday|Tue, 10 Jun|Tue, 10 Jun 2003|Tue, 10 Jun 03 04:00:00 GMT|"
       "Tue, 10 Foo 2003 04:00:00 GMT|Tue, 32 Jun 2003 04:00:00 GMT|Tue, 0 Jun 2003 04:00:00 GMT|"
       "Tue, 10 Jun 3001 04:00:00 GMT|10 Jun 2003 04:00:00 GMT|2003|2003-06|2003-13-01|2003-00-01|"
       "2003-01-00|1969-12-31T23:00:00Z|2003-06-10T999999999:00:00Z|99999999999999999999-01-01"});
}

TEST(FeedDate, AddsTheOffsetAsItIsWritten) {
  ExpectTimes("Tue, 10 Jun 2003 10:00:00 ",
              "UT 10:00 Z 10:00 GMT 10:00 EST 05:00 EDT 06:00 CST 04:00 CDT 05:00 MST 03:00 "
              "MDT 04:00 PST 02:00 pdt 03:00 A 09:00 I 01:00 J 10:00 K 00:00 M 22:00 N 11:00 "
              "Y 22:00 @ 10:00 +0930 19:30 -0430 05:30 0930 10:00");
  // Without a colon the century's digits stand for minutes.
  ExpectTimes("2003-06-10T10:00:00",
              "Z 10:00 est 05:00 -05:00 05:00 +09:30 19:30 +0900 10:20 -0900 09:40");
}

TEST(FeedDate, OnlyATimeThatTheMachinesZoneLeavesOutIsMoved) {
  setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
  tzset();
  ExpectStored({"2008-03-09 03:30:00", "2008-03-09T02:30:00", "2008-03-09 01:59:59",
                "2008-03-09T01:59:59", "2008-03-09 03:00:00", "2008-03-08T22:00:00+04:00",
                "2008-11-02 01:30:00", "2008-11-02T01:30:00", "2008-07-01 12:00:00",
                "2008-07-01T12:00:00"});
  unsetenv("TZ");
  tzset();
}

TEST(FeedDate, IsShownAsTimeTodayAndAsDateOtherwise) {
  const ManualClock clock(NoonOf(2008, 5, 1));
  const Rows rows = {"2008-05-01 09:30:01", "09:30:01",   "2008-05-02 09:30:00", "2008-05-02",
                     "2008-06-01 09:30:00", "2008-06-01", "2007-5-1 9:3:0",      "2007-05-01",
                     "2008-05-01",          "",           "2008-05-01 09:30",    "",
                     "1969-05-01 09:30:00", "",           "2008-05-32 09:30:00", ""};
  for (std::size_t i = 0; i < rows.size(); i += 2) {
    EXPECT_EQ(FormatPostDateForDisplay(rows[i], clock), rows[i + 1]);
  }
}

}  // namespace
}  // namespace feedloom
