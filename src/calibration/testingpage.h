// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "session/session.h"

#include <QWidget>

#include <functional>

namespace orv {

/// The page "Testing": resets the shutter and shows how far that is.
class TestingPage final : public QWidget {
public:
    /// `session` outlives the page; `resetShutter` runs the whole reset.
    TestingPage(Session& session, const std::function<void()>& resetShutter, QWidget* parent = nullptr);

private:
    QWidget* makeProgress(Session& session);

    Bindings bindings_;
};

} // namespace orv
