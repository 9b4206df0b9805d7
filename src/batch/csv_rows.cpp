#include "batch/csv_rows.h"

#include <string>
#include <string_view>

namespace tradebill {

bool CCsvRows::Next() {
    count_ = 0;
    isWellFormed_ = true;
    if (at_ >= text_.size()) return false;
    line_ = nextLine_;
    for (;;) {
        std::string& field = NewField();
        if (at_ < text_.size() && text_[at_] == '"') {
            TakeQuoted(field);
        } else {
            TakeBare(field);
        }
        if (at_ >= text_.size()) return true;
        if (text_[at_++] == ',') continue;
        if (text_[at_ - 1] == '\r') ++at_;
        ++nextLine_;
        return true;
    }
}

std::string& CCsvRows::NewField() {
    if (count_ == fields_.size()) fields_.emplace_back();
    std::string& field = fields_[count_++];
    field.clear();
    return field;
}

void CCsvRows::TakeQuoted(std::string& field) {
    ++at_;
    for (;; ++at_) {
        if (at_ >= text_.size()) {
            isWellFormed_ = false;
            return;
        }
        if (text_[at_] == '"') {
            if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') break;
            ++at_;
        }
        if (text_[at_] == '\n') ++nextLine_;
        field += text_[at_];
    }
    ++at_;
    if (!IsAtFieldsEnd()) {
        isWellFormed_ = false;
        TakeBare(field);
    }
}

void CCsvRows::TakeBare(std::string& field) {
    for (; !IsAtFieldsEnd(); ++at_) {
        if (text_[at_] == '"') isWellFormed_ = false;
        field += text_[at_];
    }
}

bool CCsvRows::IsAtFieldsEnd() const {
    const std::string_view rest = text_.substr(at_);
    return rest.empty() || rest.front() == ',' || rest.front() == '\n' || rest.starts_with("\r\n");
}

}  // namespace tradebill
