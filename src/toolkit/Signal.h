#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lumbra {

/// Keeps an observer subscribed. Destroying or resetting it ends the subscription, which is allowed during an
/// emission.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(end_, other.end_);
        return *this;
    }
    ~Subscription() {
        if (end_)
            end_();
    }

private:
    std::function<void()> end_;
};

/// Calls any number of observers. One thread only. Emitting allocates nothing. Observers may be added and
/// removed during an emission; a new one is first called in the next emission.
template <class... Args>
class Signal {
public:
    using Observer = std::function<void(Args...)>;

    Subscription subscribe(Observer observer) {
        const std::size_t id = ++state_->lastId;
        state_->slots.push_back({id, std::make_shared<Observer>(std::move(observer))});
        return Subscription([weak = std::weak_ptr<State>(state_), id] {
            if (const auto state = weak.lock())
                std::erase_if(state->slots, [id](const Slot& slot) { return slot.id == id; });
        });
    }

    void emit(Args... args) const {
        const auto state = state_;
        const std::size_t newest = state->lastId;
        std::size_t told = 0;
        while (true) {
            const auto next = std::find_if(state->slots.begin(), state->slots.end(),
                                           [told](const Slot& slot) { return slot.id > told; });
            if (next == state->slots.end() || next->id > newest)
                return;
            told = next->id;
            const auto observer = next->observer;
            (*observer)(args...);
        }
    }

private:
    struct Slot {
        std::size_t id;
        std::shared_ptr<Observer> observer;
    };
    struct State {
        std::vector<Slot> slots;
        std::size_t lastId = 0;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace lumbra
