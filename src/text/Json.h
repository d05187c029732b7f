#pragma once

#include "text/Decimal.h"
#include "text/Utf8.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumbra {

/// Writes the members of one JSON object. Any thread.
class Json {
public:
    /// One line with one object, whose members `write` adds, and the line's end. Nothing in it moves a terminal.
    template <class Write>
    static std::string line(Write write) {
        return written(write, isObeyedByTerminals);
    }
    /// The same in ASCII.
    template <class Write>
    static std::string asciiLine(Write write) {
        return written(write, [](unsigned) { return true; });
    }

    template <class Value>
    Json& field(std::string_view name, const Value& value) {
        text(name);
        put(value);
        return *this;
    }
    template <class Write>
    Json& object(std::string_view name, Write write) {
        text(name);
        element(write);
        return *this;
    }
    /// An array; `write` writes each element of `range`.
    template <class Range, class Write>
    Json& array(std::string_view name, const Range& range, Write write) {
        text(name);
        writer_.StartArray();
        for (const auto& element : range)
            write(*this, element);
        writer_.EndArray();
        return *this;
    }
    Json& null(std::string_view name) {
        text(name);
        writer_.Null();
        return *this;
    }
    // Elements of an array.
    template <class Write>
    void element(Write write) {
        writer_.StartObject();
        write(*this);
        writer_.EndObject();
    }
    void text(std::string_view value) {
        writer_.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    }

private:
    explicit Json(rapidjson::StringBuffer& buffer) : writer_(buffer) {}

    template <class Write>
    static std::string written(Write write, bool (*isEscaped)(unsigned codePoint)) {
        rapidjson::StringBuffer buffer;
        Json(buffer).element(write);
        return escapedInJson({buffer.GetString(), buffer.GetSize()}, isEscaped) + '\n';
    }

    void put(std::string_view value) { text(value); }
    void put(const std::string& value) { text(value); }
    void put(const char* value) { text(value); }
    void put(bool value) { writer_.Bool(value); }
    void put(int value) { writer_.Int(value); }
    void put(std::int64_t value) { writer_.Int64(value); }
    void put(float value) { number(decimalOf(value)); }
    void put(std::chrono::microseconds value) { number(secondsOf(value)); }
    void number(const std::string& decimal) {
        writer_.RawValue(decimal.data(), decimal.size(), rapidjson::kNumberType);
    }

    rapidjson::Writer<rapidjson::StringBuffer> writer_;
};

} // namespace lumbra
