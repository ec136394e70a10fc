// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <QSettings>

class QWidget;

namespace orv {

/// What the program keeps from one start to the next, in a file of its own: the ports that were connected, the folders
/// of files, windows, the page, what is chosen on a page, column widths. Never a setting of an instrument. A file that
/// cannot be read or written costs nothing but that.
class Remembered {
public:
    explicit Remembered(const QString& path)
        : file_(path, QSettings::IniFormat) {}

    /// Gives the program the ports that were connected last.
    void restorePorts(Program& program) const;
    /// From now on keeps each port as the instrument is connected on it. The program outlives this.
    void keepPorts(const Program& program);

    /// The caption of the upper strip's page.
    QString page() const;
    void keepPage(const QString& caption);

    /// The folder of the last file of a kind, which its suffix tells; the empty text if there is none any more.
    QString folder(const QString& suffix) const;
    void keepFolder(const QString& suffix, const QString& file);

    /// Size and place, by the window's object name. A window that would lie off the screens of today is moved onto one.
    void restoreWindow(QWidget& window) const;
    void keepWindow(const QWidget* window); ///< Null: it has not been made; what was kept stays.

    /// What is chosen in the lists of a page, and how wide the operator has made the columns of its table, by object
    /// names.
    void restoreChoices(QWidget& page) const;
    void keepChoices(const QWidget* page); ///< The same.

private:
    void keep(const QString& key, const QVariant& value);

    QSettings file_;
    Bindings bindings_;
};

} // namespace orv
