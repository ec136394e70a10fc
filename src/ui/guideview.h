// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

#include <functional>
#include <memory>
#include <vector>

namespace orv {

class GuidePictures;

struct GuideHeading {
    QString text;
    QString anchor;   ///< As on web pages: of "The sheet" it is "the-sheet".
    int level = 0;    ///< 1 is the title.
    int position = 0; ///< In the document.
};

/// The user guide, which is part of the program, with its pictures. They are no wider than the view; what is read stays
/// where it is when the view becomes wider and when its letters grow. The colours follow the desktop's. Links to other
/// sites are opened by the desktop.
class GuideView final : public QTextBrowser {
public:
    GuideView();
    ~GuideView() override;

    const std::vector<GuideHeading>& headings() const { return headings_; }

    /// Shows the guide from a heading; from its beginning if the anchor is empty. Back leads to what was shown before.
    void goTo(const QString& anchor);

    /// The place of the heading in headings() under which stands what is seen at the top.
    int headingInView() const;
    /// The same of a position in the document, such as that of the cursor.
    int headingOf(int position) const;

    /// Makes the letters larger by so many points, for 0 as large as they are at first.
    void zoom(int points);

    /// Selects the next place, or the one before, where the text stands; after the last one comes the first. Returns
    /// whether there is one.
    bool findText(const QString& text, bool forward);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void noteHeadings();
    void space();
    void colour();
    void keepingPlace(const std::function<void()>& change);

    std::unique_ptr<GuidePictures> pictures_;
    std::vector<GuideHeading> headings_;
};

} // namespace orv
