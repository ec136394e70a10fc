// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/debuglistmodel.h"

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr int viewInterval = 50; ///< Milliseconds.

constexpr char16_t deleteCharacter = 0x7f;

bool isControl(QChar character) {
    return character < u' ' || character == deleteCharacter;
}

QChar picture(QChar control) {
    constexpr char16_t firstPicture = 0x2400;
    constexpr char16_t deletePicture = 0x2421;
    return control == deleteCharacter ? QChar(deletePicture)
                                      : QChar(static_cast<char16_t>(firstPicture + control.unicode()));
}

QString arrow(QChar control) {
    switch (control.unicode()) {
    case u'\r':
        return QStringLiteral("\u21b5");
    case u'\n':
        return QStringLiteral("\u2193");
    case u'\t':
        return QStringLiteral("\u2192");
    default:
        return QLatin1String("\\x") + QString::number(control.unicode(), 16).rightJustified(2, u'0').toUpper();
    }
}

} // namespace

QString visibleText(const QString& text, ControlSymbols symbols) {
    QString visible;
    visible.reserve(text.size());
    for (const QChar character : text) {
        if (!isControl(character)) {
            visible += character;
        } else if (symbols == ControlSymbols::Pictures) {
            visible += picture(character);
        } else {
            visible += arrow(character);
        }
    }
    return visible;
}

DebugListModel::DebugListModel(DebugList& list)
    : list_(list)
    , shown_(list.entries()) {
    timer_.setSingleShot(true);
    timer_.setInterval(viewInterval);
    connect(&timer_, &QTimer::timeout, this, &DebugListModel::flush);
    list_.appended = [this](bool) {
        waiting_ = std::min(waiting_ + 1, DebugList::maximumEntries);
        later();
    };
    list_.lastSelected = [this] {
        selectLast_ = true;
        later();
    };
}

DebugListModel::~DebugListModel() {
    list_.appended = nullptr;
    list_.lastSelected = nullptr;
}

int DebugListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant DebugListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    return visibleText(shown_.at(static_cast<std::size_t>(index.row())), symbols_);
}

void DebugListModel::later() {
    if (!timer_.isActive()) {
        timer_.start();
    }
}

void DebugListModel::flush() {
    timer_.stop();
    const std::deque<QString>& entries = list_.entries();
    if (waiting_ > 0) {
        const std::size_t kept = entries.size() - waiting_;
        if (shown_.size() > kept) {
            const std::size_t gone = shown_.size() - kept;
            beginRemoveRows({}, 0, static_cast<int>(gone) - 1);
            shown_.erase(shown_.begin(), shown_.begin() + static_cast<std::ptrdiff_t>(gone));
            endRemoveRows();
        }
        beginInsertRows({}, static_cast<int>(kept), static_cast<int>(entries.size()) - 1);
        shown_.insert(shown_.end(), entries.end() - static_cast<std::ptrdiff_t>(waiting_), entries.end());
        endInsertRows();
        waiting_ = 0;
    }
    if (std::exchange(selectLast_, false) && lastSelected) {
        lastSelected();
    }
}

} // namespace orv
