// Any bytes as the settings file: the store reads it, one setting changes and one goes, and the application starts with
// what was read. The whole input is the file.

#include "Check.h"
#include "ManualQueue.h"
#include "ManualWorker.h"
#include "ScriptedStreams.h"
#include "Target.h"
#include "app/Application.h"
#include "app/Settings.h"
#include "platform/MemorySettingsStore.h"
#include "system/FileSettingsStore.h"

#include <QByteArray>
#include <QJsonObject>
#include <QLatin1String>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

using namespace lumbra;
namespace fs = std::filesystem;

namespace {

/// A folder of the run's own, which goes with the program.
struct Folder {
    Folder() {
        std::string name = fs::temp_directory_path() / "lumbra-fuzz-XXXXXX";
        if (!::mkdtemp(name.data()))
            std::abort();
        path = name;
    }
    ~Folder() { fs::remove_all(path); }

    void clear() const {
        for (const auto& entry : fs::directory_iterator(path))
            fs::remove(entry.path());
    }
    fs::path path;
};

struct Reachable final : Reachability {
    bool isReachable() const override { return true; }
};

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The settings in a file's bytes; nothing where they are no settings.
std::optional<QJsonObject> parsed(const std::string& bytes) {
    const auto result = parseSettings(QByteArray::fromStdString(bytes));
    const auto* values = std::get_if<QJsonObject>(&result);
    return values ? std::optional(*values) : std::nullopt;
}

QLatin1String latin1(std::string_view text) {
    return QLatin1String(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

FUZZ_TARGET(settings)(Input input) {
    static const Folder FOLDER;
    static const auto PATH = FOLDER.path / "settings.json";
    static const auto ASIDE = FOLDER.path / "settings.json.unreadable-1";
    const std::string bytes(input.take(input.size()));
    FOLDER.clear();
    std::ofstream(PATH, std::ios::binary) << bytes;
    const auto before = parsed(bytes);

    ManualQueue queue;
    MemorySettingsStore stored;
    {
        std::vector<std::string> told;
        FileSettingsStore store(queue, PATH, [&](const std::string& sentence) { told.push_back(sentence); });
        check(contents(before ? PATH : ASIDE) == bytes, "reading changed the file");
        check(told.size() == (before ? 0U : 1U), "not one sentence for a file that can't be read");
        for (const auto& entry : SETTINGS)
            if (auto value = store.value(entry.key))
                stored.setValue(entry.key, std::move(*value));
        store.setValue(START_TAB_PREFERENCE, std::int64_t{7});
        store.remove(IP_ADDRESS_PREFERENCE);
    }
    auto wanted = before.value_or(QJsonObject());
    wanted[latin1(START_TAB_PREFERENCE)] = 7;
    wanted.remove(latin1(IP_ADDRESS_PREFERENCE));
    const auto after = contents(PATH);
    check(parsed(after) == wanted, "writing changed more than it should", after);

    ManualWorker worker;
    ScriptedStreamFactory streams;
    const Reachable reachability;
    Application application({queue, worker, streams, reachability, stored});
    application.launch();
    worker.run();
    queue.runPosted();
    const auto unit = application.link().unit;
    check(unit >= 1 && unit <= 4, "no unit has this number", std::to_string(unit));
    application.terminate();
    check(stored.integer(UNIT_NUMBER_PREFERENCE) == unit &&
              stored.text(IP_ADDRESS_PREFERENCE) == streams.last().host,
          "the link has other settings than are stored");
}
