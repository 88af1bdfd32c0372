#include "store/Recordset.h"

#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

const Value kNull;

}  // namespace

std::string ValueText(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return {};
}

Recordset::Recordset(std::vector<std::string> fieldNames, Values values)
    : names_(std::move(fieldNames)), values_(std::move(values)) {}

int Recordset::recordcount() const {
    return names_.empty() ? 0 : static_cast<int>(values_.size() / names_.size());
}

const std::string& Recordset::FieldName(int position) const {
    return names_.at(static_cast<std::size_t>(position));
}

const Value& Recordset::Field(const FieldKey& key) const {
    if (eof()) return kNull;
    std::size_t position = 0;
    if (key.name.empty()) {
        position = static_cast<std::size_t>(key.position);
    } else {
        while (position < names_.size() && !EqualIgnoringCase(names_[position], key.name)) {
            ++position;
        }
    }
    if (position >= names_.size()) return kNull;
    return values_[static_cast<std::size_t>(row_) * names_.size() + position];
}

bool Recordset::IsNull(const FieldKey& key) const {
    return std::holds_alternative<std::monostate>(Field(key));
}

std::string Recordset::Text(const FieldKey& key) const {
    return ValueText(Field(key));
}

std::int64_t Recordset::Int(const FieldKey& key) const {
    const Value& value = Field(key);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    return WholePart(Number(key));
}

double Recordset::Number(const FieldKey& key) const {
    const Value& value = Field(key);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* text = std::get_if<std::string>(&value)) return Val(*text);
    return 0;
}

}  // namespace ssq
