// What statements print in tables that the page has no place for: deposits and withdrawals, exercises of options, and
// deliveries. Kept only in runs that are asked to; readers/side_table_reader.h finds them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// One row. All texts are GBK, as printed without the blanks around them, and empty where the table lacks the column;
/// BILL_DATE is the day of the statement's file.
struct CashRecord {
    std::string BILL_DATE = {};
    std::string CASH_DATE = {};
    std::string CASH_TYPE = {};
    std::string CASH_IN = {};
    std::string CASH_OUT = {};
    std::string NOTE = {};
};

/// Likewise. EXERCISED tells whether the option was exercised or abandoned, in the broker's word.
struct ExerciseRecord {
    std::string BILL_DATE = {};
    std::string EXERCISE_DATE = {};
    std::string EXCH_NAME = {};
    std::string PRODUCT = {};
    std::string CONTRACT = {};
    std::string HEDGE = {};
    std::string BID = {};
    std::string EXERCISED = {};
    std::string EXERCISE_VOL = {};
    std::string EXERCISE_PRICE = {};
    std::string EXERCISE_AMOUNT = {};
    std::string EXERCISE_PL = {};
    std::string EXERCISE_FEE = {};
};

/// Likewise. CONTRACT is the contract or, where the table names it so, the month of delivery.
struct DeliveryRecord {
    std::string BILL_DATE = {};
    std::string DELIVERY_DATE = {};
    std::string EXCH_NAME = {};
    std::string PRODUCT = {};
    std::string CONTRACT = {};
    std::string HEDGE = {};
    std::string BID = {};
    std::string DELIVERED_VOL = {};
    std::string RESIDUAL_VOL = {};
    std::string DELIVERY_PRICE = {};
    std::string DELIVERY_AMOUNT = {};
    std::string DELIVERY_FEE = {};
    std::string OPEN_PRICE = {};
    std::string DELIVERY_PL = {};
};

/// In the order of reading: oldest statement first, its tables and rows from top to bottom.
struct SideRecords {
    std::vector<CashRecord> Cash;
    std::vector<ExerciseRecord> Exercises;
    std::vector<DeliveryRecord> Deliveries;
};

/// One field of a record, as report/record_fields.h has those of the page's rows.
template <class Record>
struct SideField {
    std::string_view name;
    std::string Record::*value;
    bool isAmount = false;  ///< a price, lots or money: what stands in it is read as a number

    [[nodiscard]] std::string_view Text(const Record& record) const { return record.*value; }
};

#define TRADEBILL_TEXT_FIELD(Record, Field) \
    SideField<Record> {                     \
#Field, &Record::Field, false       \
    }
#define TRADEBILL_AMOUNT_FIELD(Record, Field) \
    SideField<Record> {                       \
#Field, &Record::Field, true          \
    }

// clang-format off
inline constexpr SideField<CashRecord> kCashFields[] = {
    TRADEBILL_TEXT_FIELD(CashRecord, BILL_DATE),
    TRADEBILL_TEXT_FIELD(CashRecord, CASH_DATE),
    TRADEBILL_TEXT_FIELD(CashRecord, CASH_TYPE),
    TRADEBILL_AMOUNT_FIELD(CashRecord, CASH_IN),
    TRADEBILL_AMOUNT_FIELD(CashRecord, CASH_OUT),
    TRADEBILL_TEXT_FIELD(CashRecord, NOTE),
};

inline constexpr SideField<ExerciseRecord> kExerciseFields[] = {
    TRADEBILL_TEXT_FIELD(ExerciseRecord, BILL_DATE),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, EXERCISE_DATE),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, PRODUCT),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, CONTRACT),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, HEDGE),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, BID),
    TRADEBILL_TEXT_FIELD(ExerciseRecord, EXERCISED),
    TRADEBILL_AMOUNT_FIELD(ExerciseRecord, EXERCISE_VOL),
    TRADEBILL_AMOUNT_FIELD(ExerciseRecord, EXERCISE_PRICE),
    TRADEBILL_AMOUNT_FIELD(ExerciseRecord, EXERCISE_AMOUNT),
    TRADEBILL_AMOUNT_FIELD(ExerciseRecord, EXERCISE_PL),
    TRADEBILL_AMOUNT_FIELD(ExerciseRecord, EXERCISE_FEE),
};

inline constexpr SideField<DeliveryRecord> kDeliveryFields[] = {
    TRADEBILL_TEXT_FIELD(DeliveryRecord, BILL_DATE),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, DELIVERY_DATE),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, PRODUCT),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, CONTRACT),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, HEDGE),
    TRADEBILL_TEXT_FIELD(DeliveryRecord, BID),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, DELIVERED_VOL),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, RESIDUAL_VOL),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, DELIVERY_PRICE),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, DELIVERY_AMOUNT),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, DELIVERY_FEE),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, OPEN_PRICE),
    TRADEBILL_AMOUNT_FIELD(DeliveryRecord, DELIVERY_PL),
};
// clang-format on

#undef TRADEBILL_AMOUNT_FIELD
#undef TRADEBILL_TEXT_FIELD

}  // namespace tradebill
