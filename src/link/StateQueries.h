#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "protocol/ReportBuffer.h"
#include "protocol/StateQuery.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace lumbra {

/// The state queries of many askers on one connection. Of each query one is under way at a time. Who asks
/// meanwhile waits for the next, which is sent once for all who wait when the first is answered, or after
/// PATIENCE without an answer.
///
/// An answer counts only for those who asked before its query was sent: others may have missed its first
/// reports. The unit answers in the order of the queries, so an answer that comes after its query was repeated
/// still belongs to the first. If the first was lost, the query is sent once more for those who waited for the
/// second. Main thread only.
class StateQueries {
public:
    /// Who asks; it is only compared.
    using Asker = const void*;

    static constexpr std::chrono::seconds PATIENCE{5};
    /// A query that has not been answered by then will not be.
    static constexpr std::chrono::seconds EXPIRY{30};

    /// `send` writes a query and returns what a write returns. `queue` and `reports`, which splits the
    /// connection's bytes, outlive this object.
    StateQueries(MainQueue& queue, const ReportBuffer& reports,
                 std::function<std::ptrdiff_t(const StateQuery&)> send)
        : queue_(queue), reports_(reports), send_(std::move(send)) {}
    StateQueries(const StateQueries&) = delete;
    StateQueries& operator=(const StateQueries&) = delete;

    /// Sends the query, or has `asker` wait for the next. Returns a positive number, or what the write
    /// returned if it took nothing: the query is then forgotten.
    std::ptrdiff_t ask(const StateQuery& query, Asker asker);

    /// The report that ends an answer has just been completed. Returns the askers that it answers, each once.
    std::vector<Asker> end(const StateQuery& query);

    /// `asker` has left.
    void forget(Asker asker);

    /// The network takes bytes again: sends the queries that it had refused.
    void resume();

private:
    struct Ask {
        Asker asker;
        std::uint64_t answeredBy; ///< the first query that was, or will be, sent behind it
    };
    /// All about one query. Queries are numbered by the order in which they are sent.
    struct Slot {
        std::uint64_t sent = 0;
        /// How many reports had begun when each query was sent that has no answer yet.
        std::deque<std::uint64_t> unanswered;
        bool overtaken = false; ///< an answer has come since the last query that may be an earlier one's
        bool late = false;      ///< no answer within PATIENCE, and nobody waited
        std::vector<Ask> asks;
        Lifetime wait;

        std::uint64_t answered() const { return sent - unanswered.size(); }
        bool isAwaited() const { return !asks.empty() && asks.back().answeredBy > sent; }
    };

    std::ptrdiff_t send(const StateQuery& query, Slot& slot);
    void wait(const StateQuery& query, Slot& slot);

    MainQueue& queue_;
    const ReportBuffer& reports_;
    const std::function<std::ptrdiff_t(const StateQuery&)> send_;
    std::map<StateQuery, Slot> slots_;
    Lifetime lifetime_;
};

} // namespace lumbra
