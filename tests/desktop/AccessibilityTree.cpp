#include "tests/desktop/AccessibilityTree.h"

#include "tests/surroundings/Surroundings.h"
#include "tests/x11/ChildProcess.h"
#include "tests/x11/VirtualDisplay.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <filesystem>
#include <utility>

namespace quillary::test {

namespace {

constexpr int patience = 5000;
const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString launcher = QStringLiteral("org.a11y.Bus");
const QString sessionName = QStringLiteral("quillary-tests-session");
const QString accessibilityName = QStringLiteral("quillary-tests-accessibility");

std::string busLauncher() {
    for (const char* path :
         {"/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"}) {
        if (std::filesystem::exists(path)) {
            return path;
        }
    }
    return "at-spi-bus-launcher";
}

QVariantList ask(const QDBusConnection& bus, const QString& service, const QString& path,
                 const QString& interface, const QString& method, const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    // The session's bus would start another accessibility bus first, which is switched off.
    message.setAutoStartService(interface != launcher);
    const auto reply = bus.call(message, QDBus::Block, patience);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QVariantList();
}

} // namespace

AccessibleNode::AccessibleNode(QDBusConnection bus, QString service, QString path)
    : m_bus(std::move(bus)), m_service(std::move(service)), m_path(std::move(path)) {}

QVariantList AccessibleNode::call(const QString& interface, const QString& method,
                                  const QVariantList& arguments) const {
    return ask(m_bus, m_service, m_path, interface, method, arguments);
}

QVariant AccessibleNode::property(const QString& interface, const QString& name) const {
    const auto reply =
        ask(m_bus, m_service, m_path, propertiesInterface, QStringLiteral("Get"), {interface, name});
    return reply.isEmpty() ? QVariant() : reply.front().value<QDBusVariant>().variant();
}

std::string AccessibleNode::name() const {
    return property(accessible, QStringLiteral("Name")).toString().toStdString();
}

std::string AccessibleNode::role() const {
    const auto reply = call(accessible, QStringLiteral("GetRoleName"));
    return reply.isEmpty() ? std::string() : reply.front().toString().toStdString();
}

bool AccessibleNode::has(State state) const {
    const auto reply = call(accessible, QStringLiteral("GetState"));
    if (reply.isEmpty()) {
        return false;
    }
    const auto words = qdbus_cast<QList<unsigned>>(reply.front());
    const auto bit = static_cast<unsigned>(state);
    constexpr unsigned wordBits = 32;
    const auto word = static_cast<qsizetype>(bit / wordBits);
    return word < words.size() && ((words[word] >> (bit % wordBits)) & 1U) != 0;
}

std::vector<AccessibleNode> AccessibleNode::children() const {
    const auto reply = call(accessible, QStringLiteral("GetChildren"));
    std::vector<AccessibleNode> result;
    if (reply.isEmpty()) {
        return result;
    }
    const auto list = reply.front().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString owner;
        QDBusObjectPath place;
        list.beginStructure();
        list >> owner >> place;
        list.endStructure();
        result.emplace_back(m_bus, owner, place.path());
    }
    list.endArray();
    return result;
}

std::optional<AccessibleNode>
AccessibleNode::find(const std::function<bool(const AccessibleNode&)>& condition) const {
    for (const AccessibleNode& child : children()) {
        if (condition(child)) {
            return child;
        }
        if (auto found = child.find(condition)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<AccessibleNode> AccessibleNode::find(const std::string& role, const std::string& name) const {
    return find([&](const AccessibleNode& node) { return node.name() == name && node.role() == role; });
}

QRect AccessibleNode::extents() const {
    const auto reply = call(QStringLiteral("org.a11y.atspi.Component"), QStringLiteral("GetExtents"), {0U});
    if (reply.isEmpty()) {
        return {};
    }
    const auto structure = reply.front().value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    structure.beginStructure();
    structure >> x >> y >> width >> height;
    structure.endStructure();
    return {x, y, width, height};
}

void AccessibleNode::act() const {
    static_cast<void>(call(QStringLiteral("org.a11y.atspi.Action"), QStringLiteral("DoAction"), {0}));
}

double AccessibleNode::value(const QString& which) const {
    return property(QStringLiteral("org.a11y.atspi.Value"), which).toDouble();
}

void AccessibleNode::setValue(double value) const {
    static_cast<void>(ask(m_bus, m_service, m_path, propertiesInterface, QStringLiteral("Set"),
                          {QStringLiteral("org.a11y.atspi.Value"), QStringLiteral("CurrentValue"),
                           QVariant::fromValue(QDBusVariant(value))}));
}

AccessibilityBus::AccessibilityBus(const std::string& sessionBus)
    : m_process(ChildProcess::start(
          Surroundings::withMachineData({busLauncher(), "--launch-immediately", "--a11y=1"}))) {
    const auto session = QDBusConnection::connectToBus(QString::fromStdString(sessionBus), sessionName);
    QString address;
    VirtualDisplay::waitUntil([&] {
        const auto reply = ask(session, launcher, QStringLiteral("/org/a11y/bus"), launcher,
                               QStringLiteral("GetAddress"), {});
        address = reply.isEmpty() ? QString() : reply.front().toString();
        return !address.isEmpty();
    });
    if (!address.isEmpty()) {
        m_bus = QDBusConnection::connectToBus(address, accessibilityName);
    }
}

AccessibilityBus::~AccessibilityBus() {
    m_bus.reset();
    QDBusConnection::disconnectFromBus(accessibilityName);
    QDBusConnection::disconnectFromBus(sessionName);
    if (m_process > 0) {
        ChildProcess::end(m_process);
    }
}

AccessibleNode AccessibilityBus::desktop() const {
    return {*m_bus, QStringLiteral("org.a11y.atspi.Registry"),
            QStringLiteral("/org/a11y/atspi/accessible/root")};
}

} // namespace quillary::test
