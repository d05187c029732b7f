#include "app/KeepConnected.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace lumbra {

namespace {

using namespace std::chrono_literals;

constexpr std::array<std::chrono::seconds, 4> DELAYS{2s, 5s, 10s, 30s};
/// A link that has lasted so long is a good one. A unit that accepts and ends each connection never gets there.
constexpr auto LASTING = 30s;

} // namespace

KeepConnected::KeepConnected(Surroundings surroundings)
    : with_(std::move(surroundings)),
      links_(with_.link.onLinkChange([this] {
          watchLink();
          schedule();
      })),
      statuses_(with_.status.onChange([this] {
          // The alert of the failure that began it must not stay over a panel that nobody touches.
          if (with_.status.status() == ScreenStatus::Current && attempts_ && *attempts_ > 0)
              with_.alerts.withdraw();
      })) {}

void KeepConnected::setActive(bool active) {
    attempts_ = active ? std::optional<std::size_t>(0) : std::nullopt;
    userConnects(); // the screen on show connects when the user comes back
}

void KeepConnected::userConnects() {
    startAgain();
    due_.reset();
    schedule();
}

void KeepConnected::watchLink() {
    if (with_.link.linkState() != LinkState::Open)
        lasting_.reset();
    else if (!lasting_)
        with_.queue.postAfter(LASTING, lasting_.emplace().guard([this] { startAgain(); }));
}

void KeepConnected::startAgain() {
    if (attempts_)
        attempts_ = 0;
    with_.alerts.setMuted(false);
}

void KeepConnected::schedule() {
    if (!attempts_ || with_.link.linkState() != LinkState::Closed) {
        due_.reset();
        return;
    }
    if (due_)
        return; // the address has changed
    with_.queue.postAfter(DELAYS[std::min(*attempts_, DELAYS.size() - 1)],
                          due_.emplace().guard([this] { attempt(); }));
}

void KeepConnected::attempt() {
    ++*attempts_;
    with_.alerts.setMuted(true);
    due_.reset();
    with_.connect();
    schedule(); // an attempt that fails before it has streams does not change the link
}

} // namespace lumbra
