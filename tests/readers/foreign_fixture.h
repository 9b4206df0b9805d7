// Statements of the foreign family and what they leave in the currencies' stores.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/fixed_readers.h"
#include "readers/reader_fixture.h"
#include "report/request_copy.h"

namespace tradebill {

class ForeignFixture : public ReaderFixture {
protected:
    ForeignFixture() { Begin(); }

    static void Begin() {
        ClearAll();
        Request.StatementKind = kForeignKind;
    }

    static void Read(std::initializer_list<std::string_view> lines) { ReadText(Statement(lines)); }

    static void ReadText(const std::string& text) {
        Begin();
        ReadForeignStatement("20240105", text);
    }

    /// Reads one more statement, of another day.
    static void ReadNextDay(std::initializer_list<std::string_view> lines) {
        ReadForeignStatement("20240108", Statement(lines));
    }

    /// The records of one currency; none if it has no store.
    static std::vector<Fields> RecordsOf(std::string_view currency) {
        const CMoneyStore* const store = CurrencyMoneyStore.Find(Gbk(currency));
        return store == nullptr ? std::vector<Fields>{} : FieldsOfAll(store->Records);
    }

    /// A record of 20240105 with these fields.
    static std::vector<Fields> OneRecord(Fields fields) {
        fields["BILL_DATE"] = "20240105";
        return {fields};
    }

    static std::vector<Fields> AccountRecords() { return FieldsOfAll(MoneyStore.Records); }
};

}  // namespace tradebill
