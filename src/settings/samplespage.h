// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/numberbox.h"
#include "settings/settingscommands.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

#include <array>

namespace orv {

/// The frame "Samples and Intervals": the four numbers, the sampling-rate options and the memory used.
class SamplesPage final : public QGroupBox {
public:
    SamplesPage(Session& session, SettingsPanel& panel, SettingsCommands& commands);

private:
    void addNumbers(QGridLayout* layout, LoggerSettings& record, QWidget* options);
    static std::function<void(const QString&)> makeRemark(QGridLayout* layout, const NumberBox& box);
    void addCapacity(QGridLayout* layout, SettingsPanel& panel);
    QWidget* makeOptions(Session& session, SettingsPanel& panel, SettingsCommands& commands);
    void select(int option);

    std::array<QRadioButton*, 4> options_{};
    Bindings bindings_;
};

} // namespace orv
