#include "link/StateQueries.h"

#include <algorithm>
#include <utility>

namespace lumbra {

std::ptrdiff_t StateQueries::ask(const StateQuery& query, Asker asker) {
    auto& slot = slots_[query];
    auto answeredBy = slot.sent + 1;
    std::ptrdiff_t result = 1;
    if (slot.unanswered.empty() || slot.late)
        result = send(query, slot);
    if (result <= 0)
        return result;
    const auto known = std::any_of(slot.asks.begin(), slot.asks.end(), [&](const Ask& ask) {
        return ask.asker == asker && ask.answeredBy == answeredBy;
    });
    if (!known)
        slot.asks.push_back({asker, answeredBy});
    return result;
}

std::ptrdiff_t StateQueries::send(const StateQuery& query, Slot& slot) {
    const auto result = send_(query);
    if (result > 0) {
        ++slot.sent;
        slot.unanswered.push_back(reports_.begun());
        slot.overtaken = slot.late = false;
        queue_.postAfter(EXPIRY, lifetime_.guard([&slot, query = slot.sent] {
            while (!slot.unanswered.empty() && slot.answered() < query)
                slot.unanswered.pop_front();
        }));
    }
    wait(query, slot);
    return result;
}

void StateQueries::wait(const StateQuery& query, Slot& slot) {
    slot.wait = Lifetime();
    queue_.postAfter(PATIENCE, slot.wait.guard([this, query, &slot] {
        if (slot.isAwaited() || (slot.overtaken && !slot.asks.empty()))
            send(query, slot);
        else
            slot.late = true;
    }));
}

std::vector<StateQueries::Asker> StateQueries::end(const StateQuery& query) {
    std::vector<Asker> askers;
    const auto found = slots_.find(query);
    if (found == slots_.end())
        return askers;
    auto& slot = found->second;
    if (!slot.unanswered.empty()) {
        if (slot.unanswered.front() == reports_.begun())
            return askers; // it was on its way before the query was
        slot.unanswered.pop_front();
    }
    std::erase_if(slot.asks, [&](const Ask& ask) {
        if (ask.answeredBy > slot.answered())
            return false;
        if (std::find(askers.begin(), askers.end(), ask.asker) == askers.end())
            askers.push_back(ask.asker);
        return true;
    });
    if (!slot.unanswered.empty()) {
        slot.overtaken = true;
        wait(query, slot);
    } else if (slot.isAwaited()) {
        send(query, slot);
    }
    return askers;
}

void StateQueries::forget(Asker asker) {
    for (auto& [query, slot] : slots_)
        std::erase_if(slot.asks, [&](const Ask& ask) { return ask.asker == asker; });
}

void StateQueries::resume() {
    for (auto& [query, slot] : slots_)
        if (slot.unanswered.empty() && slot.isAwaited())
            send(query, slot);
}

} // namespace lumbra
