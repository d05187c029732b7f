#pragma once

#include "touch/EqResponse.h"
#include "touch/ScreenAdapter.h"

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Draws the response of an output's equaliser from the state of its controls: the sum as a thick line, the
/// edited band as a thin one, over a grid of frequency and gain. Computes and paints only after a control has
/// changed. Main thread only.
class EqPlot : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(lumbra::ScreenAdapter* screen READ screen WRITE setScreen NOTIFY screenChanged)
    Q_PROPERTY(int edited READ edited WRITE setEdited NOTIFY editedChanged)
    Q_PROPERTY(QColor sumColor MEMBER sumColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor editedColor MEMBER editedColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor gridColor MEMBER gridColor_ NOTIFY lookChanged)
    Q_PROPERTY(QColor textColor MEMBER textColor_ NOTIFY lookChanged)
    Q_PROPERTY(int textSize MEMBER textSize_ NOTIFY lookChanged)

public:
    /// The plot shows this many decibels above and below zero.
    static constexpr double RANGE = 18;

    explicit EqPlot(QQuickItem* parent = nullptr);

    ScreenAdapter* screen() const { return screen_; }
    void setScreen(ScreenAdapter* screen);
    /// The edited band, 0-based; -1 for none.
    int edited() const { return edited_; }
    void setEdited(int band);

    /// The distance of a gain from the top, in a plot of height `height`.
    Q_INVOKABLE static qreal yOf(qreal decibels, qreal height);
    /// The decibels that a distance downwards stands for.
    Q_INVOKABLE static qreal decibelsOf(qreal distance, qreal height);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void screenChanged();
    void editedChanged();
    void lookChanged();

private:
    struct Controls {
        SegmentedAdapter* type = nullptr;
        SliderAdapter* frequency = nullptr;
        SliderAdapter* gain = nullptr;
    };
    void updateBand(std::size_t band);
    void drawGrid(QPainter& painter) const;
    void drawCurve(QPainter& painter, const EqResponse::Curve& curve, const QColor& color,
                   qreal thickness) const;

    ScreenAdapter* screen_ = nullptr;
    std::array<Controls, EqResponse::BANDS> controls_;
    EqResponse response_;
    int edited_ = 0;
    QColor sumColor_ = Qt::white;
    QColor editedColor_ = Qt::gray;
    QColor gridColor_ = Qt::darkGray;
    QColor textColor_ = Qt::lightGray;
    int textSize_ = 12;
};

} // namespace lumbra
