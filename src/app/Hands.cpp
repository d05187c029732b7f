#include "app/Hands.h"

namespace lumbra {

Hands::Hands(TabBarController& tabs, ServerConnection& link, MainQueue& queue) : link_(link), queue_(queue) {
    subscriptions_.push_back(tabs.onScreenChange([this] { cancel(); }));
    subscriptions_.push_back(link.onLinkChange([this] {
        if (isLocked())
            cancel();
    }));
    for (const auto& screen : tabs.viewControllers()) {
        for (const auto& item : screen->view().items())
            if (auto* const picker = dynamic_cast<Picker*>(item.control.get()); picker && !item.sends)
                watchItem(screen->view(), *picker);
        if (const auto* const list = dynamic_cast<const ItemList*>(screen.get())) {
            lists_.push_back(list);
            subscriptions_.push_back(list->onRowChange([this](auto) { rowsChanged(); }));
        }
    }
}

Hand& Hands::on(const std::shared_ptr<Slider>& slider) {
    auto& entry = hands_[slider.get()];
    if (!entry.hand) {
        entry.hand = std::make_unique<Hand>(slider, queue_, [this] { return !isLocked(); });
        entry.subscription = entry.hand->onChange([this, &entry, &slider = *slider] {
            if (!entry.hand->isHeld())
                entry.place.reset();
            else if (!entry.place)
                entry.place = placeOf(slider);
        });
    }
    return *entry.hand;
}

Hand* Hands::find(const Control& slider) {
    const auto found = hands_.find(&slider);
    return found == hands_.end() ? nullptr : found->second.hand.get();
}

void Hands::cancel() {
    for (const auto& [slider, entry] : hands_)
        entry.hand->cancel();
    cancelled_.emit(nullptr);
}

void Hands::cancel(const View& view) {
    for (const auto& item : view.items())
        if (auto* const hand = find(*item.control))
            hand->cancel();
    cancelled_.emit(&view);
}

void Hands::watchItem(const View& view, Picker& picker) {
    const auto item = [&picker] { return std::pair(picker.selected(), picker.selectedText()); };
    subscriptions_.push_back(picker.onChange([this, &view, item, known = item()]() mutable {
        if (auto now = item(); now != known) {
            known = std::move(now);
            cancel(view);
        }
    }));
}

std::optional<Hands::Place> Hands::placeOf(const Control& slider) const {
    for (const auto* const list : lists_)
        for (std::size_t row = 0; row < list->rowCount(); ++row)
            if (list->volumeOf(row).get() == &slider)
                return Place{row, list->row(row).name};
    return std::nullopt;
}

void Hands::rowsChanged() {
    for (const auto& [slider, entry] : hands_)
        if (entry.place && placeOf(*slider) != entry.place)
            entry.hand->cancel();
}

} // namespace lumbra
