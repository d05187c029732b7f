#include "protocol/Command.h"

#include <charconv>

namespace lumbra {

namespace {

std::string itemCommand(ItemKind kind, std::int64_t item, std::string_view rest) {
    const char letter = static_cast<char>(kind);
    return detail::itemCommand(std::string_view(&letter, 1), item, rest);
}

} // namespace

std::string detail::itemCommand(std::string_view code, std::int64_t item, std::string_view rest) {
    std::string body(code);
    body += std::to_string(item + 1);
    body += rest;
    return body;
}

std::string frameCommand(std::int64_t unit, std::string_view body) {
    std::string command = "[U" + std::to_string(unit);
    command += body;
    command += ']';
    return command;
}

std::optional<CommandParts> readCommand(std::string_view command) {
    if (!command.starts_with("[U") || !command.ends_with(']'))
        return {};
    CommandParts parts{};
    const auto* const end = command.data() + command.size() - 1;
    const auto [body, error] = std::from_chars(command.data() + 2, end, parts.unit);
    if (error != std::errc())
        return {};
    parts.body = {body, end};
    return parts;
}

std::string queryState(int query) {
    return "APPQ" + std::to_string(query);
}

std::string announceSerial(bool serial) {
    return serial ? "SERIAL1" : "SERIAL0";
}

bool isSerialAnnouncement(std::string_view body) {
    return body == announceSerial(false) || body == announceSerial(true);
}

std::string setVolume(ItemKind kind, std::int64_t item, std::int64_t level) {
    return itemCommand(kind, item, "V" + std::to_string(level));
}

std::string selectInput(ItemKind kind, std::int64_t item, std::int64_t input) {
    return itemCommand(kind, item, "I" + std::to_string(input + 1));
}

std::string setMute(ItemKind kind, std::int64_t item, bool on) {
    return itemCommand(kind, item, on ? "M1" : "M0");
}

std::string setPower(ItemKind kind, std::int64_t item, bool on) {
    return itemCommand(kind, item, on ? "P1" : "P0");
}

} // namespace lumbra
