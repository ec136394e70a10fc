// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modespage.h"

#include "settings/screenparts.h"

#include <QGridLayout>

namespace orv {

namespace {

QLabel* makeDescription(const QString& text, const QString& name) {
    QLabel* label = makeValueLabel(name, QStringLiteral("Description"));
    label->setText(text);
    label->setWordWrap(true);
    return label;
}

QFrame* makeLine() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

ModesPage::ModesPage(Session& session, SettingsPanel& panel, Modes& modes, const std::function<void()>& viewAsText)
    : QGroupBox(QStringLiteral("Modes")) {
    setObjectName(QStringLiteral("ModesFrame"));
    auto* profile = makeButton(QStringLiteral("&Profile"), QStringLiteral("Profile"), [&modes] { modes.profile(); });
    auto* moored = makeButton(QStringLiteral("&Moored"), QStringLiteral("Moored"), [&modes] { modes.moored(); });
    auto* save = makeButton(QStringLiteral("&Save A User Defined Mode"), QStringLiteral("SaveAUserDefinedMode"),
                            [&modes] { modes.saveMode(); });
    auto* load = makeButton(QStringLiteral("&Load A User Defined Mode"), QStringLiteral("LoadAUserDefinedMode"),
                            [&modes] { modes.loadMode(); });
    auto* view = makeButton(QStringLiteral("&View Current Settings Transcribed as Text"),
                            QStringLiteral("ViewCurrentSettingsTranscribedAsText"), viewAsText);
    auto* profileText =
        makeDescription(QStringLiteral("This mode Autostarts, takes 1 data point per second, and repeats "
                                       "this indefinatly. Data is NOT logged."),
                        QStringLiteral("ProfileDescription"));
    auto* mooredText = makeDescription(QStringLiteral("This Mode Autostarts, takes 1 data point per second. It repeats "
                                                      "once an hour. It logs up to 60000 data points."),
                                       QStringLiteral("MooredDescription"));
    profile->setAccessibleDescription(profileText->text());
    moored->setAccessibleDescription(mooredText->text());
    auto* remark = makeValueLabel(QStringLiteral("ModeRemark"), QStringLiteral("Mode file"));
    remark->setWordWrap(true);

    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(12);
    layout->setColumnStretch(1, 1);
    layout->addWidget(profile, 0, 0);
    layout->addWidget(profileText, 0, 1);
    layout->addWidget(moored, 1, 0);
    layout->addWidget(mooredText, 1, 1);
    layout->addWidget(makeLine(), 2, 0, 1, 2);
    layout->addWidget(save, 3, 0);
    layout->addWidget(load, 4, 0);
    layout->addWidget(remark, 3, 1, 2, 1);
    layout->addWidget(makeLine(), 5, 0, 1, 2);
    layout->addWidget(view, 6, 0, 1, 2, Qt::AlignLeft);
    layout->setRowStretch(7, 1);

    bindings_.bind(panel.modeRemark, [remark](const QString& text) { remark->setText(text); });
    bindings_.bind(session.commands.undisturbed, [profile, moored, load](bool on) {
        profile->setEnabled(on);
        moored->setEnabled(on);
        load->setEnabled(on);
    });
}

} // namespace orv
