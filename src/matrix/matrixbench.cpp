// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/matrixbench.h"

#include <QCoreApplication>

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace orv {

MatrixBench::MatrixBench(const QString& folder, FaultyLine::Way way, TakenRows& taken)
    : ConsoleRig([this, way](const QString& device, TestClock& ofClock) {
        auto made = std::make_unique<FaultyLine>(device, ofClock, way);
        faulty = made.get();
        faulty->watch(strikeAt_, strike_);
        return made;
    })
    , folder_(folder)
    , taken_(taken) {
    QDir::setCurrent(folder_);
    const auto take = [this](int /*number*/, const DataRow& row) { taken_.add(row, clock.monotonicMilliseconds()); };
    subscriptions_ = {collection.taken.subscribe(take), download.taken.subscribe(take)};
    ports.setDevice(1, QLatin1String(instrument));
}

MatrixBench::~MatrixBench() = default;

void MatrixBench::watchLine(qint64 at, std::function<void()> strike) {
    strikeAt_ = at;
    strike_ = std::move(strike);
    if (faulty != nullptr) {
        faulty->watch(strikeAt_, strike_);
    }
}

void MatrixBench::load() {
    program.load();
}

void MatrixBench::click(const std::function<void()>& action) {
    // Nothing in the program sleeps, and how busy the computer is does not matter here.
    const std::clock_t began = std::clock();
    action();
    longestStep = std::max<qint64>(longestStep, (std::clock() - began) * 1000 / CLOCKS_PER_SEC);
}

void MatrixBench::pass(qint64 milliseconds) {
    constexpr qint64 step = 10;
    for (qint64 left = milliseconds; left > 0; left -= step) {
        click([this, next = std::min(left, step)] { clock.advance(next); });
        if (interruption) {
            QCoreApplication::processEvents();
        }
        if (const QString step = program.nextStep.text.value(); step != nextStep_) {
            nextStep_ = step;
            note(step);
        }
    }
}

bool MatrixBench::passUntil(qint64 longest, const std::function<bool()>& reached) {
    const qint64 until = clock.monotonicMilliseconds() + longest;
    while (!reached() && clock.monotonicMilliseconds() < until) {
        pass(10);
    }
    return reached();
}

bool MatrixBench::isAtRest() const {
    if (visit) {
        return answered.status >= 0;
    }
    const bool isReading = state.Ctrlscrn == Operation::ClockCheck || state.Ctrlscrn == Operation::Identified;
    return procedures.isIdle() && commands.activity == Activity::None && !isReading;
}

bool MatrixBench::isReady() const {
    return procedures.isIdle() && commands.activity == Activity::None && state.Ctrlscrn == Operation::SettingsOpen;
}

void MatrixBench::connect() {
    constexpr qint64 longest = 20'000;
    program.autoConnect1();
    if (!passUntil(longest, [this] { return isReady(); })) {
        throw std::runtime_error("no connection: " + status.status.value().toStdString());
    }
}

void MatrixBench::sendSettingsOfBefore() {
    constexpr qint64 longest = 20'000;
    settings.record = settingsBefore;
    sender.applySettings();
    if (!passUntil(longest, [this] { return isReady(); })) {
        throw std::runtime_error("the settings are not taken");
    }
}

void MatrixBench::runBlock() {
    constexpr qint64 longest = 20'000;
    program.run();
    pass(10);
    if (!passUntil(longest, [this] { return isAtRest(); })) {
        throw std::runtime_error("the run does not end");
    }
}

void MatrixBench::save(const QString& name) {
    answers.fileName = name;
    program.saveAs();
    if (sheetState.unsaved) {
        throw std::runtime_error("the sheet is not saved");
    }
}

void MatrixBench::removeFolder() {
    QDir folder(folder_);
    removed_ = folder.entryList(QDir::Files);
    folder.removeRecursively();
}

bool MatrixBench::hasMade(const char* name) const {
    return QFile::exists(place(name)) || removed_.contains(QLatin1String(name));
}

void MatrixBench::note(const QString& sentence) {
    if (listens_ && !sentence.isEmpty()) {
        told.push_back(sentence);
    }
}

template <typename Property>
void MatrixBench::follow(Property& property) {
    notifiers_.push_back(property.addNotifier([this, &property] { note(property.value()); }));
}

void MatrixBench::listen() {
    listens_ = true;
    subscriptions_.push_back(session.messages.told.subscribe([this](const Message& message) { note(message.text); }));
    for (QProperty<Words>* shown : {&status.failure, &status.notice, &settings.exchange, &status.status}) {
        follow(*shown);
    }
}

} // namespace orv
