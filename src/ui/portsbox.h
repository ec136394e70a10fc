// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/focus.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QGroupBox>
#include <QMouseEvent>
#include <QTimer>

class QGridLayout;

namespace orv {

/// The devices of a port chooser. An entry is shown with its description; chosen, it is its device alone.
class PortChoiceModel final : public QAbstractListModel {
public:
    /// Takes over a list. Entries that stay keep their place, so that an open list does not jump.
    void setChoices(const QList<PortChoice>& wanted);

    /// The row of a device; -1 if there is none.
    int rowOf(const QString& device) const;
    QString device(int row) const { return choices_.at(row).device; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<PortChoice> choices_;
};

/// A device and what is known of it, for the operator.
QString described(const PortChoice& choice);

/// The chooser of the device behind COM 1 or COM 2: a list of devices into which any other can be typed. What is typed
/// counts once it is finished, by Enter or by leaving the box; Esc takes it back. What an assistive program sets counts
/// at once, unless the box has the focus. Disabled while the port is in use.
class PortChooser final : public QComboBox {
public:
    PortChooser(PortChoices& choices, int portNumber);

    int portNumber() const { return portNumber_; }
    /// What the box holds has not been finished.
    const QProperty<bool>& typing() const { return typing_; }

    void showPopup() override;

    /// What is being typed counts from now on.
    void finish();

    /// Shows a sign in the box, with the reason as its tool tip; none if it is empty.
    void setMarked(const QString& why);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool takeKey(int key);
    void choose(const QString& device);
    void showDevice();
    void setChoices(const QList<PortChoice>& list);
    void setLock(const QString& reason);
    void showToolTip();
    void keepReadable();

    QAction* warning_ = nullptr; ///< The sign in the box; made when it is first wanted.
    PortChoices& choices_;
    int portNumber_;
    PortChoiceModel model_;
    QProperty<bool> typing_{false};
    bool finishing_ = false; ///< The Enter key being handled finishes what was typed.
    Bindings bindings_;
};

/// The button beside the chooser of a port: "Connect", and "Disconnect" while the instrument is connected there. A
/// second click of a double click does not disconnect again. What is being typed into the chooser counts before it
/// connects; disabled, with the reason as its tool tip, while the chooser shows a text that was refused.
class ConnectButton final : public EndingButton {
public:
    ConnectButton(Program& program, PortChooser& chooser);

    /// Drawn as what the Enter key presses; only while it says "Connect".
    void setEnterPresses(bool on);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }

private:
    QString refusal() const;
    void connectOrDisconnect();
    void follow();

    Program& program_;
    PortChooser& chooser_;
    int portNumber_;
    bool disconnects_ = false;
    bool enterPresses_ = false;
    Bindings bindings_;
};

/// The choosers of COM 1 and COM 2, each with its button, and with what is wrong with the last choice below it; below
/// both the next step. The lists follow the ports that come and go about every two seconds, while the box can be seen,
/// and when one is opened.
class PortsBox final : public QGroupBox {
public:
    explicit PortsBox(Program& program);
    ~PortsBox() override;
    PortsBox(const PortsBox&) = delete;
    PortsBox& operator=(const PortsBox&) = delete;

    /// The Enter key, where no control of the page uses it: connects, on the port where the focus is or was.
    void enter();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addPort(QGridLayout& layout, int portNumber);
    void addNextStep(QGridLayout& layout);
    void noteFocus(QWidget* control);

    Program& program_;
    PortChoices& choices_;
    std::array<PortChooser*, 2> choosers_{};
    std::array<ConnectButton*, 2> buttons_{};
    std::size_t entered_ = 0; ///< The port that the Enter key connects.
    QTimer refreshTimer_{this};
    Bindings bindings_;
};

} // namespace orv
