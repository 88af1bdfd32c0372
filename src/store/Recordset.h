// The rows of a query, all in memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ssq {

using Value = std::variant<std::monostate, std::int64_t, double, std::string>;
using Values = std::vector<Value>;

// The value as text: null gives an empty one, a number its cell text.
std::string ValueText(const Value& value);

// Names a field by position (from 0) or by name, without regard to case.
struct FieldKey {
    FieldKey(int fieldPosition) : position(fieldPosition) {}     // NOLINT: meant to convert
    FieldKey(std::string_view fieldName) : name(fieldName) {}    // NOLINT
    FieldKey(const char* fieldName) : name(fieldName) {}         // NOLINT
    FieldKey(const std::string& fieldName) : name(fieldName) {}  // NOLINT

    int position = -1;
    std::string_view name;
};

// Forward reading: `while (!rs.eof()) { ... rs.MoveNext(); }`. A new Recordset holds nothing;
// reading a field that does not exist, or behind the end, gives null.
class Recordset {
  public:
    Recordset() = default;
    Recordset(std::vector<std::string> fieldNames, Values values);

    void Clear() { *this = {}; }

    int recordcount() const;
    bool eof() const { return row_ >= recordcount(); }
    void MoveFirst() { row_ = 0; }
    void MoveNext() { ++row_; }

    int FieldCount() const { return static_cast<int>(names_.size()); }
    const std::string& FieldName(int position) const;

    // Of the current row.
    const Value& Field(const FieldKey& key) const;
    bool IsNull(const FieldKey& key) const;
    std::string Text(const FieldKey& key) const;  // null gives an empty text
    std::int64_t Int(const FieldKey& key) const;  // null gives 0, decimals are cut off
    double Number(const FieldKey& key) const;     // null gives 0, a text its leading number

  private:
    std::vector<std::string> names_;
    Values values_;  // row after row, names_.size() to a row
    int row_ = 0;
};

}  // namespace ssq
