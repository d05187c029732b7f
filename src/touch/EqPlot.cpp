#include "touch/EqPlot.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace lumbra {

EqPlot::EqPlot(QQuickItem* parent) : QQuickPaintedItem(parent) {
    QObject::connect(this, &EqPlot::lookChanged, this, [this] { update(); });
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
            QObject::connect(adapter, &Adapter::changed, this, [this, band] { updateBand(band); });
        updateBand(band);
    }
    update();
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

void EqPlot::updateBand(std::size_t band) {
    const auto& controls = controls_[band];
    // The value of a frequency slider is 1000 × log10 of the frequency in Hz.
    const EqResponse::Band wanted{static_cast<EqResponse::Type>(controls.type->selected()),
                                  std::pow(10.0, controls.frequency->value() / 1000), controls.gain->value()};
    if (!response_.setBand(band, wanted))
        return;
    update();
}

void EqPlot::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    drawGrid(*painter);
    if (edited_ >= 0 && edited_ < static_cast<int>(EqResponse::BANDS))
        drawCurve(*painter, response_.band(static_cast<std::size_t>(edited_)), editedColor_, 1.5);
    drawCurve(*painter, response_.sum(), sumColor_, 3);
}

void EqPlot::drawGrid(QPainter& painter) const {
    struct Mark {
        double frequency;
        const char* text;
    };
    static constexpr Mark MARKS[] = {{50, ""},     {100, "100"}, {200, ""},  {500, ""},
                                     {1000, "1k"}, {2000, ""},   {5000, ""}, {10'000, "10k"}};
    QFont font = painter.font();
    font.setPixelSize(textSize_);
    painter.setFont(font);
    const double decades = std::log10(EqResponse::MAX_FREQUENCY / EqResponse::MIN_FREQUENCY);
    for (const auto& mark : MARKS) {
        const double x = std::log10(mark.frequency / EqResponse::MIN_FREQUENCY) / decades * width();
        painter.setPen(QPen(gridColor_, 1));
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
        painter.setPen(textColor_);
        painter.drawText(QPointF(x + 3, height() - 4), QString::fromLatin1(mark.text));
    }
    for (const int level : {-12, -6, 0, 6, 12}) {
        const double y = yOf(level, height());
        painter.setPen(QPen(gridColor_, level == 0 ? 2 : 1));
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
        painter.setPen(textColor_);
        painter.drawText(QPointF(3, y - 2), QString::number(level));
    }
}

void EqPlot::drawCurve(QPainter& painter, const EqResponse::Curve& curve, const QColor& color,
                       qreal thickness) const {
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(curve.size()));
    // Values far outside the plot need no exact position; clamping keeps huge numbers from the painter.
    for (std::size_t point = 0; point < curve.size(); ++point)
        line << QPointF(static_cast<double>(point) / static_cast<double>(curve.size() - 1) * width(),
                        yOf(std::clamp(curve[point], -2 * RANGE, 2 * RANGE), height()));
    painter.setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
}

} // namespace lumbra
