// JSON of commands and replies, which takes the toolkit's texts as well.
#pragma once

#include <QString>
#include <nlohmann/json.hpp>

namespace ssq {

using Json = nlohmann::json;

}  // namespace ssq

template <>
struct nlohmann::adl_serializer<QString> {
    static void to_json(json& value, const QString& text) { value = text.toStdString(); }
    static void from_json(const json& value, QString& text) {
        text = QString::fromStdString(value.get<std::string>());
    }
};
