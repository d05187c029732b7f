// The report road, from a report's bytes to the control that moves: our pattern tables against the standard
// library's regular expressions, and against a hand-written parser as the floor. Before anything is timed,
// all three are shown to read the same texts alike.

#include "Allocations.h"
#include "Remote.h"
#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <regex>

namespace lumbra {
namespace {

/// What a parser found: the row of the family's table, and the captured texts. -1 is no row.
struct Found {
    int row = -1;
    std::array<std::string_view, 5> groups{};
    std::size_t count = 0;

    bool operator==(const Found& other) const {
        return row == other.row && count == other.count &&
               std::equal(groups.begin(), groups.begin() + static_cast<std::ptrdiff_t>(count),
                          other.groups.begin());
    }
};

/// Reads the forms that report patterns are made of, one character at a time, without an engine: what a
/// family's parser would be if it were written out by hand.
class HandWritten {
public:
    explicit HandWritten(std::string_view text) : text_(text) {}

    bool literal(std::string_view word) {
        if (text_.substr(at_, word.size()) != word)
            return false;
        at_ += word.size();
        return true;
    }
    bool digits(std::size_t least, std::size_t most, bool sign = false, char low = '0', char high = '9') {
        const auto begin = at_;
        if (sign && at_ < text_.size() && text_[at_] == '-')
            ++at_;
        const auto first = at_;
        while (at_ < text_.size() && at_ - first < most && text_[at_] >= low && text_[at_] <= high)
            ++at_;
        if (at_ - first < least)
            return at_ = begin, false;
        keep(begin, at_);
        return true;
    }
    bool name() {
        if (!literal("N\""))
            return false;
        const auto begin = at_;
        auto end = begin;
        while (end < text_.size() && end - begin < 17 && text_[end] != '\n' && text_[end] != '\r')
            ++end;
        for (auto quote = end; quote-- > begin + 1;)
            if (text_[quote] == '"')
                return keep(begin, quote), at_ = quote + 1, true;
        return false;
    }
    Found as(int row) {
        found_.row = row;
        return found_;
    }

private:
    void keep(std::size_t begin, std::size_t end) {
        found_.groups[found_.count++] = text_.substr(begin, end - begin);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    Found found_;
};

Found unitAnd(HandWritten& in, std::string_view end, int row) {
    return in.literal(end) ? in.as(row) : Found{};
}
Found inputReport(HandWritten& in, int nameRow, int stereoRow) {
    if (!in.digits(1, 2))
        return {};
    if (in.name())
        return in.as(nameRow);
    return in.literal("STEREO") && in.digits(1, 1, false, '0', '1') ? in.as(stereoRow) : Found{};
}

Found zoneByHand(std::string_view text) {
    HandWritten in(text);
    if (!in.literal("U") || !in.digits(1, 1))
        return {};
    if (in.literal("Z")) {
        if (!in.digits(1, 2))
            return {};
        if (in.literal("V"))
            return in.digits(1, 2, true) ? in.as(0) : Found{};
        if (in.literal("I"))
            return in.digits(1, 2) ? in.as(1) : Found{};
        if (in.literal("MV"))
            return in.digits(1, 2, true) ? in.as(10) : Found{};
        if (in.literal("M"))
            return in.digits(1, 1, false, '0', '1') ? in.as(2) : Found{};
        if (in.literal("LD"))
            return in.digits(1, 1, false, '0', '1') ? in.as(3) : Found{};
        if (in.literal("BASS"))
            return in.digits(1, 2, true) ? in.as(4) : Found{};
        if (in.literal("TREB"))
            return in.digits(1, 2, true) ? in.as(5) : Found{};
        return in.name() ? in.as(7) : Found{};
    }
    if (in.literal("I"))
        return inputReport(in, 6, 9);
    if (in.literal("O"))
        return in.digits(1, 2) && in.literal("Z") && in.digits(1, 2) ? in.as(8) : Found{};
    return unitAnd(in, "APPQ0", 11);
}

Found bandByHand(HandWritten& in) {
    if (!in.digits(1, 1, false, '1', '7'))
        return {};
    if (in.literal("BYPASS"))
        return in.as(4);
    if (in.literal("HPF"))
        return in.digits(1, 5) ? in.as(5) : Found{};
    if (in.literal("LPF"))
        return in.digits(1, 5) ? in.as(7) : Found{};
    const int row = in.literal("HS") ? 6 : in.literal("LS") ? 8 : in.literal("P") ? 9 : -1;
    return row >= 0 && in.digits(1, 2, true) && in.literal("F") && in.digits(1, 5) ? in.as(row) : Found{};
}

Found outputByHand(std::string_view text) {
    HandWritten in(text);
    if (!in.literal("U") || !in.digits(1, 1))
        return {};
    if (in.literal("O")) {
        if (!in.digits(1, 2))
            return {};
        if (in.literal("V"))
            return in.digits(1, 2, true) ? in.as(0) : Found{};
        if (in.literal("I"))
            return in.digits(1, 2) ? in.as(1) : Found{};
        if (in.literal("MV"))
            return in.digits(1, 2, true) ? in.as(12) : Found{};
        if (in.literal("MXTO"))
            return in.digits(1, 2, true) ? in.as(13) : Found{};
        if (in.literal("MNTO"))
            return in.digits(1, 2, true) ? in.as(14) : Found{};
        if (in.literal("M"))
            return in.digits(1, 1, false, '0', '1') ? in.as(2) : Found{};
        if (in.literal("P"))
            return in.digits(1, 1, false, '0', '1') ? in.as(3) : Found{};
        if (in.literal("B"))
            return bandByHand(in);
        if (in.literal("STEREO"))
            return in.digits(1, 1, false, '0', '1') ? in.as(15) : Found{};
        return in.name() ? in.as(11) : Found{};
    }
    if (in.literal("I"))
        return inputReport(in, 10, 16);
    return unitAnd(in, "APPQ1", 17);
}

Found groupByHand(std::string_view text) {
    HandWritten in(text);
    if (!in.literal("U") || !in.digits(1, 1))
        return {};
    if (in.literal("G")) {
        if (!in.digits(1, 2))
            return {};
        if (in.literal("V"))
            return in.digits(1, 2, true) ? in.as(0) : Found{};
        if (in.literal("I"))
            return in.digits(1, 2) ? in.as(1) : Found{};
        if (in.literal("M"))
            return in.digits(1, 1, false, '0', '1') ? in.as(2) : Found{};
        if (in.literal("P"))
            return in.digits(1, 1, false, '0', '1') ? in.as(3) : Found{};
        return in.name() ? in.as(4) : Found{};
    }
    if (in.literal("I"))
        return inputReport(in, 5, 6);
    return unitAnd(in, "APPQ4", 7);
}

Found overrideByHand(std::string_view text) {
    HandWritten in(text);
    if (!in.literal("U") || !in.digits(1, 1))
        return {};
    if (in.literal("AO"))
        return in.digits(1, 2) && in.literal("A") && in.digits(1, 1, false, '0', '1') ? in.as(0) : Found{};
    return unitAnd(in, "APPQ3", 1);
}

Found sceneByHand(std::string_view text) {
    HandWritten in(text);
    if (!in.literal("U") || !in.digits(1, 1))
        return {};
    if (in.literal("SP"))
        return in.digits(1, 2) && in.name() ? in.as(0) : Found{};
    return unitAnd(in, "APPQ2", 1);
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

/// One family: its table compiled three ways, and its texts.
struct Family {
    std::string name;
    std::vector<std::string_view> patterns;
    Found (*byHand)(std::string_view);
    std::vector<std::string> texts = answer(name);
    PatternSet compiled{patterns};
    std::vector<std::regex> standard = [this] {
        std::vector<std::regex> all;
        for (const auto pattern : patterns)
            all.emplace_back(pattern.begin(), pattern.end());
        return all;
    }();

    template <class Report>
    Family(std::string familyName, std::span<const ReportPattern<Report>> table,
           Found (*hand)(std::string_view))
        : name(std::move(familyName)), byHand(hand) {
        for (const auto& row : table)
            patterns.push_back(row.pattern);
        compiled = PatternSet(patterns);
        standard.clear();
        for (const auto pattern : patterns)
            standard.emplace_back(pattern.begin(), pattern.end());
    }

    Found byTable(std::string_view text) const {
        const auto match = compiled.match(text);
        Found found;
        found.row = match.pattern;
        if (found.row >= 0)
            for (std::size_t group = 1; group <= match.captures.count(); ++group)
                found.groups[found.count++] = match.captures.text(group);
        return found;
    }
    Found byStandard(const std::string& text) const {
        Found found;
        std::smatch match;
        for (std::size_t row = 0; row < standard.size(); ++row)
            if (std::regex_search(text, match, standard[row])) {
                found.row = static_cast<int>(row);
                for (std::size_t group = 1; group < match.size(); ++group)
                    found.groups[found.count++] = std::string_view(
                        text.data() + match.position(group), static_cast<std::size_t>(match.length(group)));
                break;
            }
        return found;
    }

private:
    template <class Report>
    static std::vector<std::string_view> patternsOf(std::span<const ReportPattern<Report>> table) {
        std::vector<std::string_view> all;
        for (const auto& row : table)
            all.push_back(row.pattern);
        return all;
    }
};

std::vector<Family>& families() {
    static std::vector<Family> all = [] {
        std::vector<Family> made;
        made.reserve(5);
        made.emplace_back("zone", zones::reportPatterns(), zoneByHand);
        made.emplace_back("output", outputs::reportPatterns(), outputByHand);
        made.emplace_back("group", groups::reportPatterns(), groupByHand);
        made.emplace_back("override", overrides::reportPatterns(), overrideByHand);
        made.emplace_back("scene", scenes::reportPatterns(), sceneByHand);
        return made;
    }();
    return all;
}

/// Every text of every family, each also cut short, with one character changed, and with something behind it.
void proveEqual() {
    std::size_t compared = 0;
    for (const auto& family : families())
        for (const auto& other : families())
            for (const auto& text : other.texts)
                for (std::size_t change = 0; change <= 2 * text.size() + 1; ++change) {
                    std::string changed = text;
                    if (change < text.size())
                        changed.resize(change);
                    else if (change < 2 * text.size())
                        changed[change - text.size()] = "0-9\"ZM\n8"[change % 8];
                    else if (change == 2 * text.size())
                        changed += "5\"x\"";
                    const auto found = family.byTable(changed);
                    if (!(found == family.byStandard(changed)) || !(found == family.byHand(changed))) {
                        std::fprintf(stderr, "the three parsers differ on '%s' (%s)\n", changed.c_str(),
                                     family.name.c_str());
                        std::exit(1);
                    }
                    ++compared;
                }
    std::printf("The three parsers agree on %zu texts.\n", compared);
}

enum class Way { Table, Standard, Hand };

void match(benchmark::State& state, const Family& family, Way way) {
    const auto before = allocations();
    for (auto _ : state)
        for (const auto& text : family.texts) {
            const auto found = way == Way::Table      ? family.byTable(text)
                               : way == Way::Standard ? family.byStandard(text)
                                                      : family.byHand(text);
            benchmark::DoNotOptimize(found);
        }
    const auto reports = static_cast<double>(state.iterations()) * static_cast<double>(family.texts.size());
    state.counters["time/report"] =
        benchmark::Counter(reports, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["allocations/report"] = static_cast<double>(allocations() - before) / reports;
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

} // namespace
} // namespace lumbra

int main(int argc, char** argv) {
    using namespace lumbra;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    proveEqual();
    for (const auto& family : families()) {
        for (const auto& [name, way] :
             {std::pair{"table", Way::Table}, {"std::regex", Way::Standard}, {"hand", Way::Hand}})
            benchmark::RegisterBenchmark(
                (family.name + "/match/" + name).c_str(),
                [&family, way = way](benchmark::State& state) { match(state, family, way); });
        benchmark::RegisterBenchmark((family.name + "/whole answer").c_str(),
                                     [&family](benchmark::State& state) { wholeAnswer(state, family); });
    }

    /// Prints each line as usual, and the ratios behind them.
    class Ratios : public benchmark::ConsoleReporter {
    public:
        void ReportRuns(const std::vector<Run>& runs) override {
            for (const auto& run : runs)
                times[run.benchmark_name()] = run.GetAdjustedRealTime();
            ConsoleReporter::ReportRuns(runs);
        }
        std::map<std::string, double> times;
    } reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const auto& family : families()) {
        const auto time = [&](const char* way) { return reporter.times[family.name + "/match/" + way]; };
        if (time("table") > 0)
            std::printf(
                "%-8s  the table is %.1f times as fast as std::regex and takes %.1f times as long as the "
                "hand-written floor\n",
                family.name.c_str(), time("std::regex") / time("table"), time("table") / time("hand"));
    }
}
