// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/remembered.h"

#include "base/words.h"
#include "ui/sharedcolumns.h"

#include <QComboBox>
#include <QFileInfo>

namespace orv {

namespace {

QString portKey(int portNumber) {
    return QStringLiteral("ports/com%1").arg(portNumber);
}

QString folderKey(const QString& suffix) {
    return QStringLiteral("folders/") + QString(suffix).remove(u'.');
}

QString windowKey(const QWidget& window) {
    return QStringLiteral("windows/") + window.objectName();
}

QString choiceKey(const QWidget& control) {
    return QStringLiteral("choices/") + control.objectName();
}

/// The headers of a page whose columns the operator can make wider.
QList<SharedColumns*> columnsOf(const QWidget& page) {
    QList<SharedColumns*> found;
    for (auto* header : page.findChildren<QHeaderView*>()) {
        if (auto* columns = dynamic_cast<SharedColumns*>(header)) {
            found << columns;
        }
    }
    return found;
}

} // namespace

void Remembered::keep(const QString& key, const QVariant& value) {
    if (file_.value(key) != value) {
        file_.setValue(key, value);
    }
}

void Remembered::restorePorts(Program& program) const {
    program.link.portChoices.remember({file_.value(portKey(1)).toString(), file_.value(portKey(2)).toString()});
}

void Remembered::keepPorts(const Program& program) {
    for (const int portNumber : {1, 2}) {
        bindings_.bind(program.link.ports.use(portNumber), [this, &program, portNumber](PortUse use) {
            if (use == PortUse::Instrument && !program.link.portChoices.isForNowOnly(portNumber)) {
                keep(portKey(portNumber), program.link.ports.device(portNumber));
            }
        });
    }
}

QString Remembered::page() const {
    return file_.value(QStringLiteral("page")).toString();
}

void Remembered::keepPage(const QString& caption) {
    keep(QStringLiteral("page"), caption);
}

QString Remembered::folder(const QString& suffix) const {
    const QString kept = file_.value(folderKey(suffix)).toString();
    return QFileInfo(kept).isDir() ? kept : QString();
}

void Remembered::keepFolder(const QString& suffix, const QString& file) {
    keep(folderKey(suffix), QFileInfo(file).absolutePath());
}

void Remembered::restoreWindow(QWidget& window) const {
    window.restoreGeometry(file_.value(windowKey(window)).toByteArray());
}

void Remembered::keepWindow(const QWidget* window) {
    if (window != nullptr) {
        keep(windowKey(*window), window->saveGeometry());
    }
}

void Remembered::restoreChoices(QWidget& page) const {
    for (auto* list : page.findChildren<QComboBox*>()) {
        if (const int index = list->findText(Screen::shown(file_.value(choiceKey(*list)).toString())); index >= 0) {
            list->setCurrentIndex(index);
        }
    }
    for (SharedColumns* columns : columnsOf(page)) {
        QList<int> shares;
        for (const QString& share : file_.value(choiceKey(*columns)).toStringList()) {
            shares << share.toInt();
        }
        columns->setShares(shares);
    }
}

void Remembered::keepChoices(const QWidget* page) {
    if (page == nullptr) {
        return;
    }
    for (const auto* list : page->findChildren<QComboBox*>()) {
        keep(choiceKey(*list), Screen::english(list->currentText()));
    }
    for (const SharedColumns* columns : columnsOf(*page)) {
        QStringList shares;
        for (const int share : columns->shares()) {
            shares << QString::number(share);
        }
        if (!shares.isEmpty()) {
            keep(choiceKey(*columns), shares);
        }
    }
}

} // namespace orv
