#include "app/Hands.h"

namespace lumbra {

Hands::Hands(ServerConnection& link, MainQueue& queue)
    : link_(link), queue_(queue), links_(link.onLinkChange([this] {
          if (!link_.isConnected())
              for (const auto& [slider, hand] : hands_)
                  hand->cancel();
      })) {}

Hand& Hands::on(const std::shared_ptr<Slider>& slider) {
    auto& hand = hands_[slider.get()];
    if (!hand)
        hand = std::make_unique<Hand>(slider, queue_, [this] { return link_.isConnected(); });
    return *hand;
}

Hand* Hands::find(const Control& slider) {
    const auto found = hands_.find(&slider);
    return found == hands_.end() ? nullptr : found->second.get();
}

} // namespace lumbra
