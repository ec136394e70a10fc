// SPDX-License-Identifier: GPL-3.0-or-later
// An assistive program beside the real one: they know of each other only what goes over a message bus.
#include "testing/folder.h"
#include "testing/processes.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QDBusVirtualObject>

namespace orv {
namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");

/// What assistive programs know of a control's state, by the number of its bit.
enum class StateBit : unsigned { Checked = 4, Enabled = 8, Showing = 25 };

/// An assistive program, and the registry at which the programs of a desktop report themselves to it.
class Assistant final : public QDBusVirtualObject {
public:
    explicit Assistant(QString address)
        : address_(std::move(address))
        , bus_(QDBusConnection::connectToBus(address_, QStringLiteral("assistant"))) {
        EXPECT_TRUE(bus_.isConnected()) << bus_.lastError().message().toStdString();
        EXPECT_TRUE(bus_.registerVirtualObject(QStringLiteral("/org/a11y"), this, QDBusConnection::SubPath));
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.a11y.Bus")));
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.a11y.atspi.Registry")));
    }
    ~Assistant() override { QDBusConnection::disconnectFromBus(QStringLiteral("assistant")); }
    Assistant(const Assistant&) = delete;
    Assistant& operator=(const Assistant&) = delete;

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
        if (message.member() == QLatin1String("GetAddress")) {
            return bus_.send(message.createReply(address_));
        }
        if (message.member() == QLatin1String("Get")) { // whether there are assistive programs
            return bus_.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
        }
        if (message.member() == QLatin1String("Embed")) {
            program_ = message.service();
            return bus_.send(message.createReply(message.arguments()));
        }
        return false;
    }

    bool hasProgram() const { return !program_.isEmpty(); }

    /// The control of this role and name, waited for.
    QString find(const QString& role, const QString& name) {
        const auto key = std::pair(role, name);
        EXPECT_TRUE(comesTrue([&] {
            if (!controls_.contains(key)) {
                note(QStringLiteral("/org/a11y/atspi/accessible/root"));
            }
            return controls_.contains(key);
        })) << role.toStdString()
            << ' ' << name.toStdString();
        return controls_[key];
    }

    bool is(StateBit bit, const QString& path) const {
        const auto words = qdbus_cast<QList<uint>>(call(path, accessible, "GetState"));
        return !words.isEmpty() && (words[0] >> static_cast<unsigned>(bit) & 1U) != 0;
    }

    std::string text(const QString& path) const {
        return call(path, QStringLiteral("org.a11y.atspi.Text"), "GetText", {0, -1}).toString().toStdString();
    }
    void setText(const QString& path, const char* text) const {
        call(path, QStringLiteral("org.a11y.atspi.EditableText"), "SetTextContents", {QLatin1String(text)});
    }
    /// Its first action: a button is pressed, a box toggled.
    void act(const QString& path) const {
        EXPECT_TRUE(call(path, QStringLiteral("org.a11y.atspi.Action"), "DoAction", {0}).toBool());
    }

private:
    /// The first value of the answer. The program may ask something of the registry meanwhile.
    QVariant call(const QString& path, const QString& interface, const char* member,
                  const QVariantList& arguments = {}) const {
        QDBusMessage message = QDBusMessage::createMethodCall(program_, path, interface, QLatin1String(member));
        message.setArguments(arguments);
        const QDBusPendingCall answer = bus_.asyncCall(message);
        EXPECT_TRUE(comesTrue([&answer] { return answer.isFinished(); })) << member;
        return answer.reply().arguments().value(0);
    }

    /// Notes a control and those below it.
    void note(const QString& path) {
        const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
        const QVariant name = call(path, properties, "Get", {accessible, QStringLiteral("Name")});
        const QString role = call(path, accessible, "GetRoleName").toString();
        controls_.try_emplace({role, name.value<QDBusVariant>().variant().toString()}, path);
        const auto list = call(path, accessible, "GetChildren").value<QDBusArgument>();
        if (list.currentType() != QDBusArgument::ArrayType) {
            return; // a program that has ended answers nothing
        }
        for (list.beginArray(); !list.atEnd();) {
            QString service;
            QDBusObjectPath child;
            list.beginStructure();
            list >> service >> child;
            list.endStructure();
            note(child.path());
        }
        list.endArray();
    }

    QString address_;
    QDBusConnection bus_;
    QString program_;
    std::map<std::pair<QString, QString>, QString> controls_; // paths by role and name
};

class AssistiveProcess : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(bus.start());
        assistant.emplace(bus.address());
        ASSERT_NO_FATAL_FAILURE(display.start());
        program.setProcessEnvironment(environmentWith({{QStringLiteral("DISPLAY"), display.name()},
                                                       {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb")},
                                                       {QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address()},
                                                       {QStringLiteral("AT_SPI_BUS_ADDRESS"), {}}}));
        program.start(QStringLiteral(ORVHOST_PATH), {QStringLiteral("--com1"), QStringLiteral("sim:glow?baud=0")});
        ASSERT_TRUE(comesTrue([this] { return assistant->hasProgram(); }))
            << "the program does not report itself: " << program.readAllStandardError().toStdString();
    }
    void TearDown() override {
        program.kill();
        program.waitForFinished(patience);
    }

    QString find(const char* role, const char* name) {
        return assistant->find(QLatin1String(role), QLatin1String(name));
    }
    void press(const char* role, const char* name) { assistant->act(find(role, name)); }

    OwnFolder folder;
    PrivateBus bus;
    std::optional<Assistant> assistant;
    PrivateDisplay display;
    QProcess program;
};

TEST_F(AssistiveProcess, ChangesSettingsAndFindsThemInTheInstrument) {
    press("menu item", "Auto Connect Comm 1");
    const QString apply = find("push button", "Apply Settings");
    const QString profile = find("push button", "Profile");
    ASSERT_TRUE(comesTrue([&] { return assistant->is(StateBit::Enabled, apply); }));
    EXPECT_FALSE(assistant->is(StateBit::Showing, profile));
    press("page tab", "Modes"); // the current one, though nothing is shown yet
    EXPECT_TRUE(comesTrue([&] { return assistant->is(StateBit::Showing, profile); }));

    const QString gain = find("check box", "Gain");
    const bool before = assistant->is(StateBit::Checked, gain);
    const auto gainIs = [&](bool on) {
        return comesTrue([&] { return assistant->is(StateBit::Checked, gain) == on; });
    };
    press("page tab", "Control Bits");
    assistant->act(gain);
    EXPECT_TRUE(gainIs(!before));

    press("page tab", "Sampling");
    const QString box = find("text", "Number of Data Points per Data Block");
    assistant->setText(box, "12 ");
    EXPECT_EQ(assistant->text(box), "12");
    assistant->setText(box, "1a");
    EXPECT_EQ(assistant->text(box), "12");

    const auto boxHolds = [&](const std::string& text) {
        return comesTrue([&] { return assistant->text(box) == text; });
    };
    assistant->setText(box, "012"); // the instrument's report of it has no zero
    assistant->act(apply);
    EXPECT_TRUE(boxHolds("12"));
    EXPECT_TRUE(comesTrue([&] { return assistant->is(StateBit::Enabled, apply); }));

    // Only the instrument knows them now.
    assistant->setText(box, "7");
    assistant->act(gain);
    EXPECT_TRUE(gainIs(before));
    EXPECT_EQ(assistant->text(box), "7");
    press("push button", "Retrieve Settings");
    EXPECT_TRUE(gainIs(!before));
    EXPECT_TRUE(boxHolds("12"));
}

} // namespace
} // namespace orv
