// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/spokenlabels.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

namespace orv {

namespace {

class SpokenLabel final : public QAccessibleWidget {
public:
    explicit SpokenLabel(QLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override {
        const auto* label = qobject_cast<const QLabel*>(widget());
        if (kind != QAccessible::Name || label == nullptr) {
            return QAccessibleWidget::text(kind);
        }
        const QString name = label->accessibleName();
        if (name.isEmpty() || label->text().isEmpty()) {
            return name + label->text();
        }
        return name + QStringLiteral(": ") + label->text();
    }
};

QAccessibleInterface* makeSpokenLabel(const QString& /*className*/, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    // A caption, and a label with a picture, are spoken well by themselves.
    return label == nullptr || label->buddy() != nullptr || !label->pixmap(Qt::ReturnByValue).isNull()
               ? nullptr
               : new SpokenLabel(label);
}

} // namespace

void speakLabelValues() {
    QAccessible::installFactory(makeSpokenLabel);
}

} // namespace orv
