#pragma once

#include "platform/Streams.h"

#include <functional>
#include <string>
#include <vector>

namespace lumbra {

/// What an application is to a pair of streams: opens both, reads all there is inside the event, and lets go of them
/// at the end. It notes what it is told.
struct TapUser final : StreamDelegate {
    StreamPair pair;
    std::string events; ///< the names of all but those of bytes and space, with blanks
    std::string bytes;
    std::size_t piece = 256; ///< so many bytes a read; fewer than 256: one read an event
    std::function<void()> atBytes = [] {};
    bool inCall = false;

    TapUser(StreamFactory& streams, const std::string& host) : pair(streams.createPair(host, 23)) {
        inCall = true;
        pair.open(*this);
        inCall = false;
    }
    bool isOpen() const { return events == "open open "; }

    std::ptrdiff_t write(std::string_view text) {
        return !pair.output ? 0
                            : pair.output->write(
                                  std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
    }
    void read() {
        std::vector<std::uint8_t> buffer(piece);
        do
            bytes.append(buffer.begin(), buffer.begin() + pair.input->read(buffer));
        while (piece >= 256 && pair.input->hasBytesAvailable());
    }
    void handleEvent(Stream&, StreamEvent event) override {
        if (inCall)
            events += "inside ";
        if (event == StreamEvent::HasBytesAvailable) {
            read();
            atBytes();
        }
        if (event == StreamEvent::OpenCompleted)
            events += "open ";
        if (event == StreamEvent::ErrorOccurred || event == StreamEvent::EndEncountered) {
            events += event == StreamEvent::ErrorOccurred ? "error " : "end ";
            pair = {};
        }
    }
};

} // namespace lumbra
