#pragma once

#include <memory>
#include <utility>

namespace lumbra {

/// The life of an object, or of a wait, as seen by work that outlasts it: work that it guards does nothing once
/// it has ended. It ends when it is destroyed or assigned. Guarded work may be handed to a MainQueue and
/// destroyed on any thread; it is run, and the lifetime ends, on the main thread.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(Lifetime&&) = default;
    Lifetime& operator=(Lifetime&&) = default;

    /// `work` as a function that does nothing once this lifetime has ended.
    template <class Work>
    auto guard(Work work) const {
        return [token = std::weak_ptr(token_), work = std::move(work)]() mutable {
            if (!token.expired())
                work();
        };
    }

private:
    std::shared_ptr<const char> token_ = std::make_shared<const char>();
};

} // namespace lumbra
