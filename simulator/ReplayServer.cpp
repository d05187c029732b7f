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
            links_[found->second].entries.push_back(entry);
        }
    }
    connect(&server_, &QTcpServer::newConnection, this, &ReplayServer::accept);
}

void ReplayServer::accept() {
    while (auto* socket = server_.nextPendingConnection()) {
        const auto number = ++clients_;
        const auto tell = [this, number](const std::string& line) {
            tell_(std::to_string(number) + ' ' + line);
        };
        if (number > links_.size()) {
            tell("! turned away: the trace has no further link");
            delete socket;
            continue;
        }
        tell("! connected");
        const auto& link = links_[number - 1];
        auto* playback = new Playback(socket, link.entries, link.opened, pace_, verbose_, tell, this);
        connect(playback, &Playback::closed, playback, &QObject::deleteLater);
    }
}

} // namespace lumbra::sim
