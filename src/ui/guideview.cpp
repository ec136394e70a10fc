// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/guideview.h"

#include <QAbstractTextDocumentLayout>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextObjectInterface>
#include <QTextTable>
#include <QUrl>

#include <algorithm>

namespace orv {

namespace {

const QLatin1String guideFolder(":/guide/");

QUrl guideSource() {
    return QUrl(QStringLiteral("qrc:/guide/USER_GUIDE.md"));
}

/// The anchor that web pages give a heading.
QString anchorOf(const QString& heading) {
    QString anchor;
    for (const QChar character : heading.toLower()) {
        if (character == u' ') {
            anchor += u'-';
        } else if (character.isLetterOrNumber() || character == u'-' || character == u'_') {
            anchor += character;
        }
    }
    return anchor;
}

bool isCode(const QTextBlock& block) {
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage) ||
           block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
}

} // namespace

/// Measures the guide's pictures without reading them, and reads each when it is seen.
class GuidePictures final : public QObject, public QTextObjectInterface {
public:
    /// What Qt's meta-object compiler would write to tell that this is such an interface.
    void* qt_metacast(const char* name) override {
        const bool asked = qstrcmp(name, qobject_interface_iid<QTextObjectInterface*>()) == 0;
        return asked ? static_cast<QTextObjectInterface*>(this) : QObject::qt_metacast(name);
    }

    QSizeF intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) override {
        const QSizeF size = QImageReader(fileOf(format)).size();
        const double room = document->textWidth() - 2.0 * document->documentMargin();
        return room > 0.0 && room < size.width() ? size * (room / size.width()) : size;
    }

    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* /*document*/, int /*position*/,
                    const QTextFormat& format) override {
        QPixmap picture;
        const QString file = fileOf(format);
        if (!QPixmapCache::find(file, &picture)) {
            picture.load(file);
            QPixmapCache::insert(file, picture);
        }
        painter->save();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawPixmap(place, picture, QRectF(picture.rect()));
        painter->restore();
    }

private:
    static QString fileOf(const QTextFormat& format) { return guideFolder + format.toImageFormat().name(); }
};

GuideView::GuideView()
    : pictures_(std::make_unique<GuidePictures>()) {
    setOpenExternalLinks(true);
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject, pictures_.get());
    setSource(guideSource());
    noteHeadings();
    space();
    colour();
    clearHistory();
}

GuideView::~GuideView() = default;

void GuideView::noteHeadings() {
    const QSignalBlocker unnoticed(document()); // the browser would load a changed text again at the next link
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level > 0) {
            headings_.push_back({block.text(), anchorOf(block.text()), level, block.position()});
            QTextCharFormat named;
            named.setAnchor(true);
            named.setAnchorNames({headings_.back().anchor});
            cursor.setPosition(block.position());
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(named);
        }
    }
    cursor.endEditBlock();
}

/// Gives the text more air than it has by itself.
void GuideView::space() {
    const QSignalBlocker unnoticed(document()); // as above
    constexpr double margin = 16.0;
    constexpr double room = 8.0;
    constexpr double lineHeight = 120.0;
    document()->setDocumentMargin(margin);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        if (block.blockFormat().headingLevel() > 1) {
            format.setTopMargin(2.0 * margin);
            format.setBottomMargin(room);
        } else if (isCode(block)) {
            format.setNonBreakableLines(false);
            format.setTopMargin(isCode(block.previous()) ? 0.0 : room);
            format.setBottomMargin(isCode(block.next()) ? 0.0 : room);
        } else if (block.text().contains(QChar::ObjectReplacementCharacter)) {
            format.setTopMargin(room);
            format.setBottomMargin(margin);
        } else {
            format.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
        }
        cursor.setPosition(block.position());
        cursor.mergeBlockFormat(format);
    }
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorder(1.0);
            format.setBorderCollapse(true);
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setCellPadding(room / 2.0);
            format.setTopMargin(room);
            format.setBottomMargin(margin);
            table->setFormat(format);
        }
    }
    cursor.endEditBlock();
}

/// Links, tables and commands have colours of the palette in their formats.
void GuideView::colour() {
    const QSignalBlocker unnoticed(document()); // as above
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (isCode(block)) {
            QTextBlockFormat format;
            format.setBackground(palette().alternateBase());
            cursor.setPosition(block.position());
            cursor.mergeBlockFormat(format);
        }
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (!part.fragment().charFormat().anchorHref().isEmpty()) {
                QTextCharFormat format;
                format.setForeground(palette().link());
                cursor.setPosition(part.fragment().position());
                cursor.setPosition(part.fragment().position() + part.fragment().length(), QTextCursor::KeepAnchor);
                cursor.mergeCharFormat(format);
            }
        }
    }
    QColor faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.3F);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorderBrush(faint);
            table->setFormat(format);
        }
    }
    cursor.endEditBlock();
}

void GuideView::goTo(const QString& anchor) {
    document()->size(); // lays out what has not been, or there would be nothing to scroll to
    QUrl place = guideSource();
    place.setFragment(anchor.isEmpty() ? QString() : anchor);
    setSource(place);
    // A search goes on from here.
    const auto heading = std::ranges::find(headings_, anchor, &GuideHeading::anchor);
    QTextCursor cursor(document());
    cursor.setPosition(heading == headings_.end() ? 0 : heading->position);
    setTextCursor(cursor);
}

int GuideView::headingInView() const {
    const int line = fontMetrics().height();
    return headingOf(cursorForPosition(QPoint(0, line)).position());
}

int GuideView::headingOf(int position) const {
    const auto next = std::ranges::find_if(
        headings_, [position](const GuideHeading& heading) { return heading.position > position; });
    return static_cast<int>(std::max<std::ptrdiff_t>(next - headings_.begin() - 1, 0));
}

void GuideView::zoom(int points) {
    keepingPlace([this, points] {
        if (points == 0) {
            setFont(QFont());
        } else {
            zoomIn(points);
        }
    });
}

bool GuideView::findText(const QString& text, bool forward) {
    const QTextDocument::FindFlags flags = forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    QTextCursor found = document()->find(text, textCursor(), flags);
    if (found.isNull()) {
        QTextCursor edge(document());
        edge.movePosition(forward ? QTextCursor::Start : QTextCursor::End);
        found = document()->find(text, edge, flags);
    }
    if (!found.isNull()) {
        setTextCursor(found);
        const int height = viewport()->height();
        if (cursorRect().top() > height / 2) { // not in the last line, with nothing of what follows
            verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - height / 3);
        }
    }
    return !found.isNull();
}

void GuideView::keepingPlace(const std::function<void()>& change) {
    const QTextCursor top = cursorForPosition(QPoint(0, 0));
    const bool atBegin = verticalScrollBar()->value() == 0;
    change();
    document()->size();
    if (!atBegin) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top());
    }
}

void GuideView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colour();
    }
}

void GuideView::resizeEvent(QResizeEvent* event) {
    keepingPlace([this, event] { QTextBrowser::resizeEvent(event); });
}

} // namespace orv
