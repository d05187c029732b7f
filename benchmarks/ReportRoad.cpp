// The report road, from a report's bytes to the control that moves. A few of our forms are timed against the standard
// library's regular expressions, and those of the zones against a hand-written parser as the floor. Before that they are
// shown to read the same texts alike.

#include "Allocations.h"
#include "FormOracle.h"
#include "Remote.h"
#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>

namespace lumbra {
namespace {

template <class Report>
using Parse = std::optional<Parsed<Report>> (*)(std::string_view text);

/// What a family's parser would be if it were written out by hand: it reads one word or number after the
/// other.
template <class Report>
class HandWritten {
public:
    explicit HandWritten(std::string_view text) : text_(text) {}

    bool unit() { return literal("U") && digit(unit_, '0', '9'); }
    template <std::size_t SIZE>
    bool literal(const char (&word)[SIZE]) {
        if (text_.size() < SIZE - 1)
            return false;
        for (std::size_t at = 0; at < SIZE - 1; ++at)
            if (text_[at] != word[at])
                return false;
        text_.remove_prefix(SIZE - 1);
        return true;
    }
    bool digit(int& value, char low, char high) {
        if (text_.empty() || text_[0] < low || text_[0] > high)
            return false;
        value = text_[0] - '0';
        text_.remove_prefix(1);
        return true;
    }
    bool flag(int& value) { return digit(value, '0', '1'); }
    bool number(int& value, int most = 2) {
        if (!digit(value, '0', '9'))
            return false;
        for (int next = 0; --most > 0 && digit(next, '0', '9');)
            value = 10 * value + next;
        return true;
    }
    bool level(int& value) {
        const bool negative = literal("-");
        if (!number(value))
            return false;
        value = negative ? -value : value;
        return true;
    }
    bool name(Name& name) {
        if (!literal("N\""))
            return false;
        std::size_t end = 0;
        while (end < text_.size() && end < 17 && text_[end] != '\n' && text_[end] != '\r')
            ++end;
        for (auto quote = end; quote-- > 1;)
            if (text_[quote] == '"') {
                name = Name::fromLatin1(text_.substr(0, quote));
                return true;
            }
        return false;
    }
    template <class Kind>
    std::optional<Parsed<Report>> made(bool complete, const Kind& report) const {
        std::optional<Parsed<Report>> parsed;
        if (complete)
            parsed.emplace(Parsed<Report>{unit_, report});
        return parsed;
    }
    std::optional<Parsed<Report>> input() {
        int input = 0;
        int on = 0;
        Name of;
        if (!number(input))
            return {};
        if (name(of))
            return made(true, reports::InputName{input - 1, of});
        const bool complete = literal("STEREO") && flag(on);
        return made(complete, reports::InputStereo{input - 1, on != 0});
    }

private:
    std::string_view text_;
    int unit_ = 0;
};

std::optional<Parsed<zones::Report>> zoneByHand(std::string_view text) {
    using namespace zones;
    HandWritten<Report> in(text);
    int item = 0;
    int value = 0;
    Name name;
    if (!in.unit())
        return {};
    if (in.literal("Z")) {
        if (!in.number(item))
            return {};
        if (in.literal("V")) {
            const bool complete = in.level(value);
            return in.made(complete, reports::Volume{item - 1, value});
        }
        if (in.literal("I")) {
            const bool complete = in.number(value);
            return in.made(complete, reports::Input{item - 1, value - 1});
        }
        if (in.literal("MV")) {
            const bool complete = in.level(value);
            return in.made(complete, reports::MaxVolume{item - 1, value});
        }
        if (in.literal("M")) {
            const bool complete = in.flag(value);
            return in.made(complete, reports::Mute{item - 1, value != 0});
        }
        if (in.literal("LD")) {
            const bool complete = in.flag(value);
            return in.made(complete, Loudness{item - 1, value != 0});
        }
        if (in.literal("BASS")) {
            const bool complete = in.level(value);
            return in.made(complete, Bass{item - 1, value});
        }
        if (in.literal("TREB")) {
            const bool complete = in.level(value);
            return in.made(complete, Treble{item - 1, value});
        }
        const bool complete = in.name(name);
        return in.made(complete, reports::ItemName{item - 1, name});
    }
    if (in.literal("I"))
        return in.input();
    if (in.literal("O")) {
        const bool complete = in.number(item) && in.literal("Z") && in.number(value);
        return in.made(complete, OutputAssignment{item - 1, value - 1});
    }
    return in.made(in.literal("APPQ0"), reports::EndOfState{});
}

/// A typed report in words, to compare two readings.
std::string words(const std::optional<Parsed<zones::Report>>& parsed) {
    if (!parsed)
        return "";
    const auto describe = [](const auto& report) -> std::string {
        if constexpr (std::is_empty_v<std::decay_t<decltype(report)>>) {
            return "";
        } else {
            const auto& [item, value] = report;
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, Name>)
                return std::to_string(item) + " " + std::string(value.view());
            else
                return std::to_string(item) + " " + std::to_string(value);
        }
    };
    return std::to_string(parsed->unit) + " " + std::to_string(parsed->report.index()) + " " +
           std::visit(describe, parsed->report);
}

/// A whole answer of the unit to one state query, as report texts.
std::vector<std::string> answer(const std::string& family) {
    std::vector<std::string> all;
    const auto add = [&all](const std::string& text) { all.push_back("U1" + text); };
    const auto inputs = [&add] {
        for (int i = 1; i <= 20; ++i) {
            add("I" + std::to_string(i) + "N\"Input number " + std::to_string(i) + "\"");
            add("I" + std::to_string(i) + "STEREO" + std::to_string(i % 2));
        }
    };
    if (family == "zone") {
        for (int i = 1; i <= 16; ++i) {
            const auto zone = "Z" + std::to_string(i);
            for (const auto* rest :
                 {"MV-5", "V-30", "I12", "M1", "LD1", "BASS-5", "TREB7", "N\"Living Room\""})
                add(zone + rest);
            add("O" + std::to_string(i) + zone);
        }
        inputs();
        add("APPQ0");
    } else if (family == "output") {
        for (int i = 1; i <= 16; ++i) {
            const auto output = "O" + std::to_string(i);
            for (const auto* rest :
                 {"MV-5", "MXTO-10", "MNTO-60", "V-30", "I12", "M0", "P1", "N\"Terrace left\"", "STEREO1",
                  "B1HPF80", "B2LS4F120", "B3P-3F1000", "B4P6F2500", "B5BYPASS", "B6HS-6F8000", "B7LPF18000"})
                add(output + rest);
        }
        inputs();
        add("APPQ1");
    } else if (family == "group") {
        for (int i = 1; i <= 10; ++i)
            for (const auto* rest : {"V-30", "I12", "M1", "P1", "N\"Ground floor\""})
                add("G" + std::to_string(i) + rest);
        inputs();
        add("APPQ4");
    } else if (family == "override") {
        for (int i = 1; i <= 10; ++i)
            add("AO" + std::to_string(i) + "A" + std::to_string(i % 2));
        add("APPQ3");
    } else {
        for (int i = 1; i <= 10; ++i)
            add("SP" + std::to_string(i) + "N\"Evening " + std::to_string(i) + "\"");
        add("APPQ2");
    }
    return all;
}

/// Has `parse` read texts, over and over.
template <class Function>
void timeReading(benchmark::State& state, const std::vector<std::string>& texts, Function parse) {
    const auto before = allocations();
    for (auto _ : state)
        for (const auto& text : texts) {
            const auto reading = parse(text);
            benchmark::DoNotOptimize(reading);
        }
    const auto reports = static_cast<double>(state.iterations()) * static_cast<double>(texts.size());
    state.counters["time/report"] =
        benchmark::Counter(reports, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["allocations/report"] = static_cast<double>(allocations() - before) / reports;
}

/// One screen's reports.
struct Family {
    std::string name;
    std::vector<std::string> texts = answer(name);
    std::function<void(benchmark::State&)> timeForms;

    template <class Report>
    Family(const char* familyName, Parse<Report> forms)
        : name(familyName),
          timeForms([this, forms](benchmark::State& state) { timeReading(state, texts, forms); }) {}
    Family(const Family&) = delete;
};

std::array<Family, 5>& families() {
    static std::array<Family, 5> all{Family{"zone", zones::parse}, Family{"output", outputs::parse},
                                     Family{"group", groups::parse}, Family{"override", overrides::parse},
                                     Family{"scene", scenes::parse}};
    return all;
}

/// Every text of every family, each also cut short, with one character changed, and with something behind it.
void proveEqual() {
    std::size_t compared = 0;
    for (const auto& family : families())
        for (const auto& text : family.texts)
            for (std::size_t change = 0; change <= 2 * text.size() + 1; ++change) {
                std::string changed = text;
                if (change < text.size())
                    changed.resize(change);
                else if (change < 2 * text.size())
                    changed[change - text.size()] = "0-9\"ZM\n8"[change % 8];
                else if (change == 2 * text.size())
                    changed += "5\"x\"";
                if (words(zones::parse(changed)) != words(zoneByHand(changed)) ||
                    oracle::byForms(changed) != oracle::byExpressions(changed)) {
                    std::fprintf(stderr, "two parsers differ on '%s'\n", changed.c_str());
                    std::exit(1);
                }
                ++compared;
            }
    std::printf("The parsers agree on %zu texts.\n", compared);
}

/// A screen with its whole answer arriving in one piece, from the first byte to the last control changed.
void wholeAnswer(benchmark::State& state, const Family& family) {
    Remote remote;
    remote.settings.setValue("advanced_mode_preference", family.name == "output");
    remote.launch();
    remote.play("tab " + family.name);
    std::string bytes;
    for (const auto& text : family.texts)
        bytes += "(" + text + ")";
    remote.streams.last().feed(bytes);
    const auto before = allocations();
    // Every other round mutes and unmutes, turns the volume and the names, so that controls and pickers
    // really change.
    std::string other = bytes;
    for (std::size_t at = 0; (at = other.find("-30", at)) != std::string::npos; ++at)
        other[at + 1] = '2';
    for (std::size_t at = 0; (at = other.find("N\"", at)) != std::string::npos; ++at)
        other[at + 2] = 'X';
    bool swap = false;
    for (auto _ : state)
        remote.streams.last().feed((swap = !swap) ? other : bytes);
    state.counters["reports"] = static_cast<double>(family.texts.size());
    state.counters["allocations/report"] = static_cast<double>(allocations() - before) /
                                           static_cast<double>(state.iterations()) /
                                           static_cast<double>(family.texts.size());
}

/// The application, put together and taken apart again.
void construct(benchmark::State& state) {
    Remote remote;
    for (auto _ : state)
        Application({remote.queue, remote.worker, remote.streams, remote.reachability, remote.settings});
}

} // namespace
} // namespace lumbra

int main(int argc, char** argv) {
    using namespace lumbra;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    proveEqual();
    for (const auto& family : families()) {
        benchmark::RegisterBenchmark((family.name + "/read/forms").c_str(), family.timeForms);
        benchmark::RegisterBenchmark((family.name + "/whole answer").c_str(),
                                     [&family](benchmark::State& state) { wholeAnswer(state, family); });
    }
    const auto& zoneTexts = families()[0].texts;
    const auto time = [&zoneTexts](const char* name, auto parse) {
        benchmark::RegisterBenchmark(
            name, [&zoneTexts, parse](benchmark::State& state) { timeReading(state, zoneTexts, parse); });
    };
    time("zone/read/hand", zoneByHand);
    time("some/read/forms", oracle::byForms);
    time("some/read/std::regex", oracle::byExpressions);
    benchmark::RegisterBenchmark("application/construct", construct);

    /// Prints each line as usual, and the ratios behind them.
    class Ratios : public benchmark::ConsoleReporter {
    public:
        void ReportRuns(const std::vector<Run>& runs) override {
            for (const auto& run : runs)
                times[run.benchmark_name()] = run.GetAdjustedCPUTime();
            ConsoleReporter::ReportRuns(runs);
        }
        std::map<std::string, double> times;
    } reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto ratio = [&](const char* one, const char* other, const char* sentence) {
        if (reporter.times[other] > 0)
            std::printf(sentence, reporter.times[one] / reporter.times[other]);
    };
    ratio("some/read/std::regex", "some/read/forms", "The forms are %.1f times as fast as std::regex.\n");
    ratio("zone/read/forms", "zone/read/hand",
          "For zones they take %.2f times as long as the hand-written floor.\n");
}
