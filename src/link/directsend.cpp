// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/directsend.h"

namespace orv {

DirectSend::DirectSend(ComPorts& ports)
    : ports_(ports) {}

void DirectSend::send(const QString& text) {
    ports_.debugsay(QStringLiteral("Direct Enter"));
    ports_.write(text.toLatin1());
}

DebugFrames::DebugFrames(ComPorts& ports, DebugState& debug)
    : ports_(ports)
    , debug_(debug) {}

void DebugFrames::showFluorometer() {
    // The fluorometer's is the third of the page's frames.
    ports_.debugsay(QStringLiteral("Hide all but 3"));
    showOnly(debug_.fluorometerFrameVisible);
}

void DebugFrames::showTransmissometer() {
    showOnly(debug_.transmissometerFrameVisible);
}

void DebugFrames::showTurbidity() {
    showOnly(debug_.turbidityFrameVisible);
}

void DebugFrames::showOnly(const QProperty<bool>& frame) {
    for (QProperty<bool>* each : {&debug_.debugFrameVisible, &debug_.turbidityFrameVisible,
                                  &debug_.fluorometerFrameVisible, &debug_.transmissometerFrameVisible}) {
        *each = each == &frame;
    }
}

} // namespace orv
