#pragma once

#include "toolkit/Control.h"

#include <string>
#include <string_view>
#include <utility>

namespace lumbra {

/// A line of text (UTF-8).
class Label final : public Control {
public:
    static constexpr Kind KIND = Kind::Label;

    explicit Label(std::string text) : Control(KIND), text_(std::move(text)) {}

    const std::string& text() const { return text_; }
    void setText(std::string_view text) {
        if (text_ == text)
            return;
        text_ = text;
        notifyChanged();
    }

private:
    std::string text_;
};

} // namespace lumbra
