#include "console/Completion.h"

#include "Session.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace lumbra;
using Words = std::vector<std::string>;

TEST(Completion, OffersWhatMayStandThere) {
    Remote remote;
    remote.launch();
    struct Case {
        const char* line;
        Words words;
    };
    const Case cases[] = {
        {"s", {"state", "slide", "switch", "segment", "set"}},
        {"slide ", {"volumeSlider", "bassSlider", "trebleSlider"}},
        {"slide b", {"bassSlider"}},
        {"slide bassSlider ", {}},
        {"pick ", {"zonePicker", "sourcePicker"}},
        {"press ", {}}, // this screen has no button
        {"switch muteSwitch o", {"on", "off"}},
        {"tab ", {"zone", "group", "override", "scene"}},
        {"set uni", {"unit_number_preference"}},
        {"set polling_preference ", {"true", "false"}},
        {"set ip_address_preference ", {}},
        {"app b", {"become-active", "back"}},
        {"wait ", {"answer", "open", "closed"}},
        {"fly ", {}},
        {"tab zone zone ", {}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(console::completions(remote.application, line), words) << line;
}

} // namespace
