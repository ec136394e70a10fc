// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/aboutdialog.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("AboutDialog"));
    setWindowTitle(QStringLiteral("About Orv Host"));
    auto* name = new QLabel(QStringLiteral("ORV Host Program"));
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    name->setFont(font);
    auto* version = new QLabel(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
    version->setObjectName(QStringLiteral("VersionLabel"));
    auto* purpose = new QLabel(QStringLiteral("Connects the ORV self-logging optical water sensors GLOW and TRX:\n"
                                              "settings, live data, stored data, calibration."));
    auto* ok = new QPushButton(QStringLiteral("&OK"));
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { accept(); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addWidget(purpose);
    layout->addWidget(ok, 0, Qt::AlignRight);
}

} // namespace orv
