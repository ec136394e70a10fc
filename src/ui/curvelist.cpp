// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/curvelist.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

namespace {

constexpr int linesBeforeCurves = 3;

QLabel* makeValue(QAnyStringView name, QAnyStringView accessibleName) {
    QLabel* label = makeTextLabel(name, accessibleName);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A fixed width, so that a new number does not lay out the page anew.
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("00000.00000")));
    return label;
}

} // namespace

CurveList::CurveList()
    : grid_(new QGridLayout)
    , title_(new QLabel) {
    setObjectName(QStringLiteral("CurveList"));
    title_->setObjectName(QStringLiteral("ReadoutTitle"));
    title_->setTextFormat(Qt::PlainText);
    title_->setContentsMargins(0, 2, 0, 0); // for the accent of a capital letter
    record_ = addValue(0, "ReadoutRecord", Screen::tr("Record"));
    date_ = addValue(1, "ReadoutDate", Screen::tr("Date"));
    time_ = addValue(2, "ReadoutTime", Screen::tr("Time"));
    grid_->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title_);
    layout->addLayout(grid_);
    layout->addStretch(1);
}

QLabel* CurveList::addValue(int row, QAnyStringView name, const QString& caption) {
    auto* value = makeValue(name, caption);
    grid_->addWidget(new QLabel(caption), row, 0);
    grid_->addWidget(value, row, 1);
    return value;
}

void CurveList::setCurves(const QStringList& names, const std::vector<bool>& shown) {
    // A control that has the focus stays, so that a header row that is laid out anew does not take the focus away.
    while (lines_.size() > static_cast<std::size_t>(names.size())) {
        delete lines_.back().box;
        delete lines_.back().value;
        lines_.pop_back();
    }
    for (auto curve = static_cast<int>(lines_.size()); curve < names.size(); ++curve) {
        auto* box = new QCheckBox;
        box->setObjectName(QStringLiteral("Curve%1").arg(curve + 1));
        box->setIconSize(QSize(28, 14));
        box->setToolTip(Screen::tr("Shows or hides this curve."));
        box->installEventFilter(this);
        connect(box, &QCheckBox::toggled, this, [this, curve](bool on) { switched.tell(curve, on); });
        auto* value = makeValue(QStringLiteral("ReadoutValue%1").arg(curve + 1), {});
        grid_->addWidget(box, linesBeforeCurves + curve, 0);
        grid_->addWidget(value, linesBeforeCurves + curve, 1);
        lines_.push_back({.box = box, .value = value});
    }
    for (std::size_t curve = 0; curve < lines_.size(); ++curve) {
        const QString& name = names[static_cast<qsizetype>(curve)];
        const auto& [box, value] = lines_[curve];
        const QSignalBlocker quiet(box);
        box->setText(QString(name).replace(u'&', QLatin1String("&&")));
        // A letter of the name would change with the header row; a new text takes the shortcut away.
        box->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(curve))));
        box->setAccessibleName(Screen::tr("Curve %1").arg(name));
        box->setChecked(shown[curve]);
        value->setAccessibleName(Screen::tr("Value of %1").arg(name));
    }
}

void CurveList::followInTabOrder(QWidget* before) {
    for (const Line& line : lines_) {
        setTabOrder(before, line.box);
        before = line.box;
    }
}

void CurveList::setSwatches(const std::vector<QIcon>& swatches) {
    for (std::size_t curve = 0; curve < std::min(lines_.size(), swatches.size()); ++curve) {
        lines_[curve].box->setIcon(swatches[curve]);
    }
}

void CurveList::show(const Readout& readout) {
    title_->setText(readout.title);
    record_->setText(readout.record);
    date_->setText(readout.date);
    time_->setText(readout.time);
    for (std::size_t curve = 0; curve < lines_.size(); ++curve) {
        lines_[curve].value->setText(readout.values.value(static_cast<qsizetype>(curve)));
    }
}

bool CurveList::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // The box itself knows of it only when it has handled the event.
        QMetaObject::invokeMethod(
            this, [this] { tellRegarded(); }, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return false;
}

void CurveList::tellRegarded() {
    const auto first = [this](auto holds) {
        const auto found = std::find_if(lines_.begin(), lines_.end(), holds);
        return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
    };
    const int pointed = first([](const Line& line) { return line.box->underMouse(); });
    regarded.tell(pointed >= 0 ? pointed : first([](const Line& line) { return line.box->hasFocus(); }));
}

} // namespace orv
