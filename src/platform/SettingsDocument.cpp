// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SettingsDocument.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "platform/Base64.h"
#include "platform/DiagnosticText.h"

namespace marquell::platform {
namespace {

using Json = nlohmann::json;

constexpr const char* settingsMember = "settings";
constexpr const char* dataMember = "data";
constexpr const char* numberMember = "number";

struct NamedNumber {
    const char* name;
    double number;
};
constexpr std::array<NamedNumber, 3> namedNumbers = {{
    {"nan", std::numeric_limits<double>::quiet_NaN()},
    {"inf", std::numeric_limits<double>::infinity()},
    {"-inf", -std::numeric_limits<double>::infinity()},
}};

/// Goes through a text without keeping anything of it, to find what is wrong with it.
class Inspection : public nlohmann::json_sax<Json> {
public:
    explicit Inspection(std::string_view text) : text_(text) {}

    const std::string& problem() const { return problem_; }

    bool null() override { return true; }
    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(Json::number_integer_t /*value*/) override { return true; }
    bool number_unsigned(Json::number_unsigned_t /*value*/) override { return true; }
    bool number_float(Json::number_float_t /*value*/, const std::string& /*text*/) override {
        return true;
    }
    bool string(std::string& /*value*/) override { return true; }
    bool binary(Json::binary_t& /*value*/) override { return true; }
    bool key(std::string& /*value*/) override { return true; }
    bool start_object(std::size_t /*count*/) override { return descend(); }
    bool end_object() override { return ascend(); }
    bool start_array(std::size_t /*count*/) override { return descend(); }
    bool end_array() override { return ascend(); }
    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const nlohmann::detail::exception& /*error*/) override {
        // The position is that of the byte at fault, counted from one.
        const std::string_view before = text_.substr(0, position > 0 ? position - 1 : 0);
        const std::size_t line = before.rfind('\n') + 1;
        const auto number = 1 + std::count(before.begin(), before.end(), '\n');
        const std::size_t shown =
            std::max(line, before.size() - std::min(before.size(), shownBefore));
        const std::string found =
            before.size() >= text_.size()
                ? "the end of the file"
                : '"' + diagnosticText(text_.substr(shown, position - shown)) + '"';
        problem_ = "line " + std::to_string(number) + ", column " +
                   std::to_string(before.size() - line + 1) + ": found " + found +
                   ", expected JSON";
        return false;
    }

private:
    static constexpr std::size_t maximumDepth = 64;
    static constexpr std::size_t shownBefore = 20;  // bytes of the line up to the fault

    bool descend() {
        if (++depth_ <= maximumDepth) return true;
        problem_ = "found values more than " + std::to_string(maximumDepth) +
                   " levels deep, expected settings";
        return false;
    }

    bool ascend() {
        --depth_;
        return true;
    }

    std::string_view text_;
    std::size_t depth_ = 0;
    std::string problem_;
};

std::optional<Json> documentIn(std::string_view text, std::string& problem) {
    // The parser would take it for the end and what follows would be lost.
    if (text.find('\0') != std::string_view::npos) {
        problem = "found a NUL byte, expected JSON";
        return std::nullopt;
    }
    Inspection inspection(text);
    if (!Json::sax_parse(text, &inspection)) {
        problem = inspection.problem();
        return std::nullopt;
    }
    Json document = Json::parse(text, nullptr, false);
    const auto settings = document.find(settingsMember);
    if (!document.is_object()) {
        problem = std::string("found JSON of type ") + document.type_name() + ", expected object";
    } else if (settings != document.end() && !settings->is_object()) {
        problem = std::string("member \"settings\": found JSON of type ") + settings->type_name() +
                  ", expected object";
    } else {
        return document;
    }
    return std::nullopt;
}

DefaultsValue decodedObject(const Json& value) {
    if (value.size() != 1 || !value.begin()->is_string()) return DefaultsOther();
    const auto& text = value.begin()->get_ref<const std::string&>();
    if (value.begin().key() == dataMember) {
        if (auto bytes = bytesOfBase64(text)) return DefaultsData{std::move(*bytes)};
    } else if (value.begin().key() == numberMember) {
        for (const auto& [name, number] : namedNumbers) {
            if (text == name) return number;
        }
    }
    return DefaultsOther();
}

DefaultsValue decodedArray(const Json& value) {
    const auto isText = [](const Json& each) { return each.is_string(); };
    if (!std::all_of(value.begin(), value.end(), isText)) return DefaultsOther();
    return value.get<std::vector<std::string>>();
}

DefaultsValue decoded(const Json& value) {
    switch (value.type()) {
        case Json::value_t::boolean:
            return value.get<bool>();
        case Json::value_t::number_integer:
            return value.get<std::int64_t>();
        case Json::value_t::number_unsigned:
            if (!std::in_range<std::int64_t>(value.get<std::uint64_t>())) return DefaultsOther();
            return value.get<std::int64_t>();
        case Json::value_t::number_float:
            return value.get<double>();
        case Json::value_t::string:
            return value.get<std::string>();
        case Json::value_t::array:
            return decodedArray(value);
        case Json::value_t::object:
            return decodedObject(value);
        default:
            return DefaultsOther();
    }
}

struct Coding {
    Json operator()(const DefaultsOther& /*value*/) const { return nullptr; }
    Json operator()(const DefaultsData& value) const {
        return Json::object({{dataMember, base64(value.bytes)}});
    }
    Json operator()(double value) const {
        for (const auto& [name, number] : namedNumbers) {
            if (identical(value, number)) return Json::object({{numberMember, name}});
        }
        return value;
    }
    Json operator()(const TextList& value) const { return value.texts(); }
    template <typename T>
    Json operator()(const T& value) const {
        return value;
    }
};

std::string textOf(const Json& value, int indentation) {
    return value.dump(indentation, ' ', false, Json::error_handler_t::replace);
}

/// Whether both are written alike: comparing them would take 150 for 150.0.
bool isSame(const Json& a, const Json& b) { return textOf(a, -1) == textOf(b, -1); }

/// False if nothing differs by it.
bool apply(Json& settings, const std::string& key, const std::optional<DefaultsValue>& value) {
    if (!value) return settings.erase(key) > 0;
    const auto found = settings.find(key);
    Json coded = std::visit(Coding(), *value);
    if (found != settings.end() && isSame(*found, coded)) return false;
    settings[key] = std::move(coded);
    return true;
}

}  // namespace

std::optional<DefaultsValues> settingsIn(std::string_view text, std::string& problem) {
    const std::optional<Json> document = documentIn(text, problem);
    if (!document) return std::nullopt;
    DefaultsValues values;
    const auto settings = document->find(settingsMember);
    if (settings == document->end()) return values;
    for (const auto& [key, value] : settings->items()) values.emplace(key, decoded(value));
    return values;
}

std::string withChanges(const std::string& text, const DefaultsChanges& changes) {
    std::string problem;
    std::optional<Json> document = documentIn(text, problem);
    if (!document) return {};
    Json settings = document->value(settingsMember, Json::object());
    bool isChanged = false;
    for (const auto& [key, value] : changes) isChanged |= apply(settings, key, value);
    if (!isChanged) return text;
    (*document)[settingsMember] = std::move(settings);
    return textOf(*document, 4) + '\n';
}

}  // namespace marquell::platform
