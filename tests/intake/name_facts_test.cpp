#include "intake/name_facts.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::name_facts_test {
namespace {

TEST(IsCalendarDay, KnowsTheCalendar) {
    for (const char* const day : {"20240229", "19700101", "30001231", "20241231"})
        EXPECT_TRUE(IsCalendarDay(day)) << day;
    for (const char* const day : {"20230229", "20240431", "20241301", "20240100", "20240132", "19691231", "30010101",
                                  "2024010", "202401011", "2024010x", ""}) {
        EXPECT_FALSE(IsCalendarDay(day)) << day;
    }
}

struct Name {
    const char* name;
    const char* account;
    const char* day;
};

TEST(NameFacts, AreAccountAndDay) {
    const Name names[] = {
        {"D9001.20240102o.txt", "9001", "20240102"},
        {"D9001.20240102.txt", "9001", "20240102"},
        {"DWP6001.20240102o.txt", "6001", "20240102"},
        {"9001_2024-01-02.xls", "9001", "20240102"},
        {"9001_2024-01-02(1).txt", "9001", "20240102"},
        {"结算单20240102.txt", "-", "20240102"},
        {"bill 2024-01-02 final.txt", "-", "20240102"},
        {"90010005_20240102.txt", "-", "20240102"},
        {"20240102_20240102.txt", "-", "20240102"},
        {"20240102-20240103.txt", "-", "-"},
        {"120240102.txt", "-", "-"},
        {"202401021.txt", "-", "-"},
        {"20241399.txt", "-", "-"},
        {"bill.txt", "-", "-"},
        {"", "-", "-"},
    };
    for (const Name& name : names) {
        const NameFacts facts = FactsOfName(name.name);
        EXPECT_EQ(facts.account.value_or("-"), name.account) << name.name;
        EXPECT_EQ(facts.day.value_or("-"), name.day) << name.name;
    }
}

}  // namespace
}  // namespace tradebill::name_facts_test
