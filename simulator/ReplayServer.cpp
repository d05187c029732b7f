#include "simulator/ReplayServer.h"

#include <string>
#include <utility>

namespace lumbra::sim {

ReplayServer::ReplayServer(const Trace& trace, Playback::Pace pace, bool verbose, Playback::Tell tell)
    : pace_(pace), verbose_(verbose), tell_(std::move(tell)) {
    std::map<int, std::size_t> places;
    for (const auto& entry : trace.entries) {
        if (entry.kind == TraceEntry::Kind::Opened) {
            if (places.emplace(entry.link, links_.size()).second)
                links_.push_back({entry.time, {}});
        } else if (const auto found = places.find(entry.link); found != places.end()) {
            // What the remote did not send at once it never sent, so it is the whole write that is expected.
            auto& added = links_[found->second].entries.emplace_back(entry);
            added.text += std::exchange(added.notSent, {});
        }
    }
}

void ReplayServer::welcome(QTcpSocket* socket) {
    clientsWait_ = false;
    const auto number = ++clients_;
    const auto tell = [this, number](const std::string& line) { tell_(std::to_string(number) + ' ' + line); };
    if (number > links_.size()) {
        tell("! turned away: the trace has no further link");
        delete socket;
        return;
    }
    tell("! connected");
    const auto& link = links_[number - 1];
    auto* playback = new Playback(socket, link.entries, link.opened, pace_, verbose_, tell, this);
    connect(playback, &Playback::closed, playback, &QObject::deleteLater);
}

void ReplayServer::acceptFailed(const std::string& problem) {
    if (!std::exchange(clientsWait_, true))
        tell_("! " + problem + "; the next client waits");
}

} // namespace lumbra::sim
