// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/focus.h"

#include <QWidget>

#include <memory>
#include <span>

class QLabel;
class QLineEdit;
class QListWidget;

namespace orv {

class GuideView;
class Remembered;

/// Where the guide tells of a screen.
struct GuideChapter {
    const char* screen; ///< Object name of what is seen of it and is not grey, or the class of its window.
    const char* anchor; ///< Of the heading; empty for the beginning.
};

/// Every screen; the first of which something is seen counts.
std::span<const GuideChapter> guideChapters();

/// The anchor of the chapter about what is seen in a window.
QString guideChapterOf(const QWidget& window);

/// The window "User Guide": the guide with its pictures, its headings at the left to choose from, a box to find a text.
/// It stays beside the program and holds nothing.
class HelpWindow final : public QWidget {
public:
    HelpWindow();

    /// Comes to the front with that chapter.
    void open(const QString& anchor);

protected:
    bool focusNextPrevChild(bool next) override { return focus_.move(next) || QWidget::focusNextPrevChild(next); }

private:
    QLayout* makeBar();
    void makeChapters();
    void makeKeys();
    void markChapter(int row);
    void find(bool forward);

    GuideView* view_;
    QListWidget* chapters_;
    QLineEdit* findBox_;
    QLabel* found_;
    FocusKeeper focus_{*this};
};

/// Brings the guide to the front at the chapter about the window that is active, else about the main window. `guide` is
/// made the first time, as it was left the last time if that is remembered.
void showGuide(std::unique_ptr<HelpWindow>& guide, const QWidget& mainWindow, const Remembered* remembered);

} // namespace orv
