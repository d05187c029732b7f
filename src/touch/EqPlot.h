#pragma once

#include "touch/EqResponse.h"
#include "touch/ScreenAdapter.h"

#include <QColor>
#include <QQuickPaintedItem>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include <bitset>
#include <vector>

namespace lumbra {

/// Draws the response of an output's equaliser from the state of its controls: the sum as a thick line, the
/// edited band as a thin one, over a grid of frequency and gain whose labels stand left and below. Where the
/// sum leaves the grid, an arrow at the edge has its extreme value. Computes and paints only after a control
/// has changed, at most once a frame. Main thread only.
class EqPlot : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(lumbra::ScreenAdapter* screen MEMBER screen_ WRITE setScreen NOTIFY screenChanged)
    Q_PROPERTY(int edited MEMBER edited_ WRITE setEdited NOTIFY editedChanged)
    Q_PROPERTY(QRectF grid READ grid NOTIFY gridChanged)
    Q_PROPERTY(qreal handleRadius MEMBER handleRadius_ NOTIFY lookChanged)
    Q_PROPERTY(QColor sumColor MEMBER sumColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor editedColor MEMBER editedColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor gridColor MEMBER gridColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor textColor MEMBER textColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor backColor MEMBER backColor_ NOTIFY lookChanged)
    Q_PROPERTY(int textSize MEMBER textSize_ NOTIFY lookChanged)

public:
    /// The grid reaches this many decibels above and below zero.
    static constexpr double RANGE = 18;
    /// The gain of a band is this many decibels at most.
    static constexpr double MAX_GAIN = 15;

    /// A label's room along its axis, in pixels.
    struct Stretch {
        double from;
        double to;
    };

    explicit EqPlot(QQuickItem* parent = nullptr);

    void setScreen(ScreenAdapter* screen);
    /// The edited band, 0-based; -1 for none.
    void setEdited(int band);
    /// The grid in the item: 20 Hz is left, 20 kHz right, +18 dB above and -18 dB below. Around it there is
    /// room for a whole handle of radius `handleRadius`, at each frequency and gain that a band can have.
    QRectF grid() const { return grid_; }

    /// The distance of a gain from the top of the grid, which is `height` high.
    Q_INVOKABLE static qreal yOf(qreal decibels, qreal height);
    /// The decibels that a distance downwards stands for.
    Q_INVOKABLE static qreal decibelsOf(qreal distance, qreal height);
    /// Which labels are shown, from their rooms in the order of importance: each that stays `gap` clear of
    /// those before it.
    static std::vector<bool> shownLabels(const std::vector<Stretch>& labels, double gap);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void screenChanged();
    void editedChanged();
    void gridChanged();
    void lookChanged();

protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;
    /// Before a frame: computes what has changed.
    void updatePolish() override;

private:
    struct Controls {
        SegmentedAdapter* type = nullptr;
        SliderAdapter* frequency = nullptr;
        SliderAdapter* gain = nullptr;
    };
    void layOut();
    QFont font() const;
    qreal xOf(double frequency) const;
    qreal pointX(std::size_t point) const;
    void drawGrid(QPainter& painter) const;
    void drawLabels(QPainter& painter) const;
    QPolygonF line(const EqResponse::Curve& curve) const;
    void drawCurves(QPainter& painter) const;
    void drawArrow(QPainter& painter, const EqResponse::Extreme& extreme) const;

    ScreenAdapter* screen_ = nullptr;
    std::array<Controls, EqResponse::BANDS> controls_;
    std::bitset<EqResponse::BANDS> stale_;
    EqResponse response_;
    int edited_ = 0;
    QRectF grid_;
    qreal handleRadius_ = 0;
    QColor sumColor_ = Qt::white;
    QColor editedColor_ = Qt::gray;
    QColor gridColor_ = Qt::darkGray;
    QColor textColor_ = Qt::lightGray;
    QColor backColor_ = Qt::black;
    int textSize_ = 12;
};

} // namespace lumbra
