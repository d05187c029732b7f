#include "touch/EqPlot.h"

#include "touch/BandText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace lumbra {

namespace {

struct FrequencyMark {
    double frequency;
    const char* text;
};
struct GainMark {
    int decibels;
    const char* text;
};
// In the order of importance: of labels that collide, the first is shown.
constexpr FrequencyMark FREQUENCIES[] = {{20, "20"},      {20'000, "20k"}, {1000, "1k"}, {100, "100"},
                                         {10'000, "10k"}, {200, "200"},    {2000, "2k"}, {50, "50"},
                                         {500, "500"},    {5000, "5k"}};
constexpr GainMark GAINS[] = {{18, "+18"},       {-18, "\u221218"}, {0, "0"},       {12, "+12"},
                              {-12, "\u221212"}, {6, "+6"},         {-6, "\u22126"}};

constexpr double LABEL_GAP = 4;
constexpr double ARROW = 9;

} // namespace

EqPlot::EqPlot(QQuickItem* parent) : QQuickPaintedItem(parent) {
    QObject::connect(this, &EqPlot::lookChanged, this, [this] {
        layOut();
        update();
    });
}

void EqPlot::setScreen(ScreenAdapter* screen) {
    if (screen == screen_ || !screen)
        return;
    screen_ = screen;
    for (std::size_t band = 0; band < controls_.size(); ++band) {
        const QString number = QString::number(band + 1);
        auto& controls = controls_[band];
        controls = {screen->segmented(QStringLiteral("filterType") + number),
                    screen->slider(QStringLiteral("filterFreq") + number),
                    screen->slider(QStringLiteral("filterGain") + number)};
        for (Adapter* adapter :
             {static_cast<Adapter*>(controls.type), static_cast<Adapter*>(controls.frequency),
              static_cast<Adapter*>(controls.gain)})
            QObject::connect(adapter, &Adapter::changed, this, [this, band] {
                stale_.set(band);
                polish();
            });
    }
    stale_.set();
    polish();
    Q_EMIT screenChanged();
}

void EqPlot::setEdited(int band) {
    if (band == edited_)
        return;
    edited_ = band;
    update();
    Q_EMIT editedChanged();
}

qreal EqPlot::yOf(qreal decibels, qreal height) {
    return (RANGE - decibels) / (2 * RANGE) * height;
}

qreal EqPlot::decibelsOf(qreal distance, qreal height) {
    return height > 0 ? -distance / height * 2 * RANGE : 0;
}

std::vector<bool> EqPlot::shownLabels(const std::vector<Stretch>& labels, double gap) {
    std::vector<bool> shown(labels.size());
    for (std::size_t label = 0; label < labels.size(); ++label) {
        bool clear = true;
        for (std::size_t other = 0; other < label; ++other)
            clear = clear && (!shown[other] || labels[label].from >= labels[other].to + gap ||
                              labels[label].to + gap <= labels[other].from);
        shown[label] = clear;
    }
    return shown;
}

void EqPlot::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    layOut();
}

void EqPlot::updatePolish() {
    bool changed = false;
    for (std::size_t band = 0; band < controls_.size(); ++band) {
        if (!stale_[band])
            continue;
        const auto& controls = controls_[band];
        // The value of a frequency slider is 1000 × log10 of the frequency in Hz.
        changed |= response_.setBand(band, {static_cast<EqResponse::Type>(controls.type->selected()),
                                            std::pow(10.0, controls.frequency->value() / 1000),
                                            controls.gain->value()});
    }
    stale_.reset();
    if (changed)
        update();
}

QFont EqPlot::font() const {
    QFont font;
    font.setPixelSize(std::max(1, textSize_));
    return font;
}

void EqPlot::layOut() {
    const QFontMetricsF metrics(font());
    double gutter = 0;
    for (const auto& mark : GAINS)
        gutter = std::max(gutter, metrics.horizontalAdvance(QString::fromUtf8(mark.text)));
    const double side = std::max(handleRadius_, metrics.horizontalAdvance(QStringLiteral("20k")) / 2);
    // The half of a label, or as much of a handle at the highest gain as the range above it has no room for.
    const double half = metrics.height() / 2;
    const double above = RANGE - MAX_GAIN;
    const double below = metrics.height() + LABEL_GAP;
    const double free = std::max(0.0, height() - below - half);
    const double inset = std::max(0.0, (handleRadius_ - above / (2 * RANGE) * free) / (1 - above / RANGE));
    const QRectF grid(gutter + side, std::max(half, inset), std::max(0.0, width() - gutter - 2 * side),
                      std::max(0.0, height() - below - inset - std::max(half, inset)));
    if (grid == grid_)
        return;
    grid_ = grid;
    Q_EMIT gridChanged();
}

qreal EqPlot::xOf(double frequency) const {
    return grid_.left() + std::log(frequency / EqResponse::MIN_FREQUENCY) /
                              std::log(EqResponse::MAX_FREQUENCY / EqResponse::MIN_FREQUENCY) * grid_.width();
}

qreal EqPlot::pointX(std::size_t point) const {
    return grid_.left() + static_cast<double>(point) / (EqResponse::POINTS - 1) * grid_.width();
}

void EqPlot::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(font());
    drawGrid(*painter);
    drawLabels(*painter);
    drawCurves(*painter);
    for (const auto& extreme : {response_.highest(), response_.lowest()})
        if (std::abs(extreme.decibels) > RANGE)
            drawArrow(*painter, extreme);
}

void EqPlot::drawGrid(QPainter& painter) const {
    painter.setPen(QPen(gridColor_, 1));
    for (const auto& mark : FREQUENCIES)
        painter.drawLine(QPointF(xOf(mark.frequency), grid_.top()),
                         QPointF(xOf(mark.frequency), grid_.bottom()));
    for (const auto& mark : GAINS) {
        const double y = grid_.top() + yOf(mark.decibels, grid_.height());
        painter.setPen(QPen(gridColor_, mark.decibels == 0 ? 2 : 1));
        painter.drawLine(QPointF(grid_.left(), y), QPointF(grid_.right(), y));
    }
}

void EqPlot::drawLabels(QPainter& painter) const {
    const QFontMetricsF metrics(painter.font());
    painter.setPen(textColor_);
    std::vector<Stretch> rooms;
    for (const auto& mark : FREQUENCIES) {
        const double half = metrics.horizontalAdvance(QString::fromLatin1(mark.text)) / 2;
        rooms.push_back({xOf(mark.frequency) - half, xOf(mark.frequency) + half});
    }
    const auto shownFrequencies = shownLabels(rooms, LABEL_GAP);
    for (std::size_t mark = 0; mark < std::size(FREQUENCIES); ++mark)
        if (shownFrequencies[mark])
            painter.drawText(QPointF(rooms[mark].from, height() - metrics.descent()),
                             QString::fromLatin1(FREQUENCIES[mark].text));
    rooms.clear();
    for (const auto& mark : GAINS) {
        const double y = grid_.top() + yOf(mark.decibels, grid_.height());
        rooms.push_back({y - metrics.height() / 2, y + metrics.height() / 2});
    }
    const auto shownGains = shownLabels(rooms, 0);
    const double right = grid_.left() - std::max(handleRadius_, LABEL_GAP);
    for (std::size_t mark = 0; mark < std::size(GAINS); ++mark) {
        const auto text = QString::fromUtf8(GAINS[mark].text);
        if (shownGains[mark])
            painter.drawText(
                QPointF(right - metrics.horizontalAdvance(text), rooms[mark].from + metrics.ascent()), text);
    }
}

QPolygonF EqPlot::line(const EqResponse::Curve& curve) const {
    QPolygonF line;
    // Values far outside the grid need no exact position; clamping keeps huge numbers from the painter.
    for (std::size_t point = 0; point < curve.size(); ++point)
        line << QPointF(pointX(point),
                        grid_.top() + yOf(std::clamp(curve[point], -2 * RANGE, 2 * RANGE), grid_.height()));
    return line;
}

void EqPlot::drawCurves(QPainter& painter) const {
    const auto pen = [](const QColor& color, double thickness) {
        return QPen(color, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    };
    painter.save();
    // A line on the edge of the grid is whole.
    painter.setClipRect(grid_.adjusted(-2, -2, 2, 2));
    const auto sum = line(response_.sum());
    const double zero = grid_.top() + yOf(0, grid_.height());
    QColor shade = editedColor_;
    shade.setAlphaF(0.12F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPolygon(QPolygonF(sum) << QPointF(grid_.right(), zero) << QPointF(grid_.left(), zero));
    if (edited_ >= 0 && edited_ < static_cast<int>(EqResponse::BANDS)) {
        painter.setPen(pen(editedColor_, 1.5));
        painter.drawPolyline(line(response_.band(static_cast<std::size_t>(edited_))));
    }
    painter.setPen(pen(sumColor_, 3));
    painter.drawPolyline(sum);
    painter.restore();
}

void EqPlot::drawArrow(QPainter& painter, const EqResponse::Extreme& extreme) const {
    const bool up = extreme.decibels > 0;
    const double x = std::clamp(pointX(extreme.point), grid_.left() + ARROW, grid_.right() - ARROW);
    const double tip = up ? grid_.top() : grid_.bottom();
    const double base = up ? tip + ARROW : tip - ARROW;
    painter.setPen(Qt::NoPen);
    painter.setBrush(sumColor_);
    painter.drawPolygon(QPolygonF({QPointF(x, tip), QPointF(x - ARROW, base), QPointF(x + ARROW, base)}));
    // The text is clear of a handle at the same frequency.
    const QFontMetricsF metrics(painter.font());
    const auto text = BandText::gain(std::llround(extreme.decibels));
    const double space = std::max(handleRadius_, ARROW) + LABEL_GAP;
    QRectF room(0, 0, metrics.horizontalAdvance(text) + 2 * LABEL_GAP, metrics.height());
    room.moveTop(up ? tip : tip - room.height());
    room.moveLeft(x + space + room.width() <= grid_.right() ? x + space : x - space - room.width());
    QColor back = backColor_;
    back.setAlphaF(0.8F);
    painter.setBrush(back);
    painter.drawRoundedRect(room, LABEL_GAP, LABEL_GAP);
    painter.setPen(sumColor_);
    painter.drawText(room, Qt::AlignCenter, text);
}

} // namespace lumbra
