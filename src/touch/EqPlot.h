#pragma once

#include "touch/EqResponse.h"
#include "touch/ScreenAdapter.h"

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Draws the response of an output's equaliser as its controls stand: the sum bold, the band being edited
/// lightly, over a grid of frequency and gain. It computes and paints only when a control has changed.
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
    /// The plot shows as many decibels above and below zero.
    static constexpr double RANGE = 18;

    explicit EqPlot(QQuickItem* parent = nullptr);

    ScreenAdapter* screen() const { return screen_; }
    void setScreen(ScreenAdapter* screen);
    /// The band being edited, from 0; -1 for none.
    int edited() const { return edited_; }
    void setEdited(int band);

    /// Where a gain stands in a plot of that height, from its top.
    Q_INVOKABLE static qreal yOf(qreal decibels, qreal height);
    /// The decibels that a distance down stands for.
    Q_INVOKABLE static qreal decibelsOf(qreal distance, qreal height);

    void paint(QPainter* painter) override;
    /// How often the response was computed anew.
    int computations() const { return computations_; }

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
    void takeBand(std::size_t band);
    void drawGrid(QPainter& painter) const;
    void drawCurve(QPainter& painter, const EqResponse::Curve& curve, const QColor& color,
                   qreal thickness) const;

    ScreenAdapter* screen_ = nullptr;
    std::array<Controls, EqResponse::BANDS> controls_;
    EqResponse response_;
    int edited_ = 0;
    int computations_ = 0;
    QColor sumColor_ = Qt::white;
    QColor editedColor_ = Qt::gray;
    QColor gridColor_ = Qt::darkGray;
    QColor textColor_ = Qt::lightGray;
    int textSize_ = 12;
};

} // namespace lumbra
