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

    void Begin() {
        MakeReport();
        report.Request.StatementKind = kForeignKind;
    }

    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) { ReadText(Statement(lines)); }

    void ReadText(const std::string& text) {
        Begin();
        Read(ReadForeignStatement, "20240105", text);
    }

    /// Reads one more statement, of another day.
    void ReadNextDay(std::initializer_list<std::string_view> lines) {
        Read(ReadForeignStatement, "20240108", Statement(lines));
    }

    /// The records of one currency; none if it has no store.
    std::vector<Fields> RecordsOf(std::string_view currency) {
        const CMoneyStore* const store = report.CurrencyMoneyStore.Find(Gbk(currency));
        return store == nullptr ? std::vector<Fields>{} : FieldsOfAll(store->Records);
    }

    /// A record of 20240105 with these fields.
    static std::vector<Fields> OneRecord(Fields fields) {
        fields["BILL_DATE"] = "20240105";
        return {fields};
    }

    std::vector<Fields> AccountRecords() { return FieldsOfAll(report.MoneyStore.Records); }
};

}  // namespace tradebill
