#include "protocol/Command.h"

#include "model/Outputs.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <gtest/gtest.h>

namespace lumbra {
namespace {

TEST(Command, HasTheBytesOfTheWire) {
    const struct {
        std::string body;
        const char* wire;
    } cases[] = {
        {queryState(0), "[U1APPQ0]"},
        {queryState(4), "[U1APPQ4]"},
        {announceSerial(true), "[U1SERIAL1]"},
        {announceSerial(false), "[U1SERIAL0]"},
        {setVolume(ItemKind::Zone, 2, -35), "[U1Z3V-35]"},
        {setVolume(ItemKind::Output, 15, 0), "[U1O16V0]"},
        {setVolume(ItemKind::Group, 9, -7), "[U1G10V-7]"},
        {selectInput(ItemKind::Zone, 2, 11), "[U1Z3I12]"},
        {selectInput(ItemKind::Group, 9, 0), "[U1G10I1]"},
        {setMute(ItemKind::Output, 2, true), "[U1O3M1]"},
        {setMute(ItemKind::Zone, 2, false), "[U1Z3M0]"},
        {setPower(ItemKind::Group, 2, false), "[U1G3P0]"},
        {setPower(ItemKind::Output, 2, true), "[U1O3P1]"},
        {zones::setBass(2, -5), "[U1Z3BASS-5]"},
        {zones::setTreble(2, 7), "[U1Z3TREB7]"},
        {zones::setLoudness(2, true), "[U1Z3LD1]"},
        {zones::setLoudness(2, false), "[U1Z3LD0]"},
        {outputs::setBand(2, 1, Outputs::FILTER_BYPASS, -6, 8000), "[U1O3B2BYPASS]"},
        {outputs::setBand(2, 1, Outputs::FILTER_HIGHPASS, -6, 80), "[U1O3B2HPF80]"},
        {outputs::setBand(2, 1, Outputs::FILTER_HIGHSHELF, -6, 8000), "[U1O3B2HS-6F8000]"},
        {outputs::setBand(2, 1, Outputs::FILTER_LOWPASS, -6, 12000), "[U1O3B2LPF12000]"},
        {outputs::setBand(2, 1, Outputs::FILTER_LOWSHELF, 4, 120), "[U1O3B2LS4F120]"},
        {outputs::setBand(15, 6, Outputs::FILTER_PARAMETRIC, -15, 20000), "[U1O16B7P-15F20000]"},
        {overrides::operate(9), "[U1AO10A2]"},
        {scenes::recall(2), "[U1SP3LOAD]"},
        {scenes::store(9), "[U1SP10SAVE]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(frameCommand(1, c.body), c.wire);
    EXPECT_EQ(frameCommand(4, queryState(2)), "[U4APPQ2]");
}

} // namespace
} // namespace lumbra
