// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The plotting library's header wants two keywords that the program's own code does without.
#include <QtGlobal>
#define signals Q_SIGNALS
#define foreach(variable, container) for (variable : container) // NOLINT(bugprone-macro-parentheses): a declaration
#include <qcustomplot.h>
#undef foreach
#undef signals

namespace orv {

/// A curve with gaps, which are points whose value is NaN. Every number is seen, however many points share a pixel: the
/// line reaches the last one before a gap and begins with the first one after it, and a number that stands alone
/// between gaps, where there is no line, has its symbol whatever the distance of the other symbols is. Of symbols that
/// would stand close together only the first of each stretch of 12 to 24 pixels is drawn.
class PlotCurve final : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

    /// The points between the two that have symbols.
    void getOptimizedScatterData(QVector<QCPGraphData>* scatterData, QCPGraphDataContainer::const_iterator begin,
                                 QCPGraphDataContainer::const_iterator end) const override;

protected:
    void getOptimizedLineData(QVector<QCPGraphData>* lineData, const QCPGraphDataContainer::const_iterator& begin,
                              const QCPGraphDataContainer::const_iterator& end) const override;

private:
    void thinOut(QVector<QCPGraphData>& points) const;
    void appendLonePoints(QVector<QCPGraphData>& points, QCPGraphDataContainer::const_iterator begin,
                          QCPGraphDataContainer::const_iterator end) const;
};

/// Labels an axis of record numbers: whole numbers only, at steps of 1, 2 or 5 times a power of ten.
class RecordTicker final : public QCPAxisTicker {
protected:
    double getTickStep(const QCPRange& range) override;
};

/// Labels an axis of seconds from the start of 1970 with times of day, and with the date below where it begins. No two
/// labels are the same, and each says its tick exactly: where ticks are no whole seconds they have decimals.
class TimeTicker final : public QCPAxisTickerDateTime {
public:
    TimeTicker();

protected:
    double getTickStep(const QCPRange& range) override;
    QVector<QString> createLabelVector(const QVector<double>& ticks, const QLocale& locale, QChar formatChar,
                                       int precision) override;
};

} // namespace orv
