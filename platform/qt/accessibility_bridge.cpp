#include "platform/qt/accessibility_bridge.h"

#if __has_include(<QDBusVirtualObject>)
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#endif

namespace varno {

#if __has_include(<QDBusVirtualObject>)

namespace {

constexpr const char* Bus = "a11y";
constexpr const char* Objects = "/org/a11y/atspi/accessible";
constexpr const char* Questions = "org.a11y.atspi.Accessible";

bool IsToggleButton(const QAccessibleInterface& object) {
    const auto* const button = qobject_cast<const QPushButton*>(object.object());
    return button != nullptr && button->isCheckable();
}

QVariant Role(const QAccessibleInterface& object) {
    constexpr uint ToggleButton = 62;
    return IsToggleButton(object) ? QVariant(ToggleButton) : QVariant();
}

QVariant RoleName(const QAccessibleInterface& object) {
    return IsToggleButton(object) ? QVariant(QStringLiteral("toggle button")) : QVariant();
}

QVariant Attributes(const QAccessibleInterface& object) {
    using Map = QMap<QString, QString>;
    return object.role() == QAccessible::Heading
               ? QVariant::fromValue(Map{{QStringLiteral("level"), object.text(HeadingLevel)}})
               : QVariant();
}

struct Answer {
    const char* question;
    QVariant (*about)(const QAccessibleInterface& object);  // invalid: as Qt says
};

constexpr Answer Answers[] = {
    {"GetRole", Role},
    {"GetRoleName", RoleName},
    {"GetLocalizedRoleName", RoleName},
    {"GetAttributes", Attributes},
};

QVariant AnswerTo(const QDBusMessage& message) {
    if (message.interface() != QLatin1String(Questions)) {
        return {};
    }
    const QAccessible::Id id = message.path().section(u'/', -1).toUInt();
    const QAccessibleInterface* const object = QAccessible::accessibleInterface(id);
    for (const Answer& answer : Answers) {
        if (object != nullptr && object->isValid() &&
            message.member() == QLatin1String(answer.question)) {
            return answer.about(*object);
        }
    }
    return {};
}

// Has the place of Qt's bridge on the bus, and hands on to it what it does not answer itself.
class FrontOfBridge final : public QDBusVirtualObject {
  public:
    explicit FrontOfBridge(QDBusVirtualObject* bridge)
        : QDBusVirtualObject(QCoreApplication::instance()), bridge_(bridge) {}

    QString introspect(const QString& path) const override {
        return bridge_ ? bridge_->introspect(path) : QString();
    }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QVariant answer = AnswerTo(message);
        return answer.isValid() ? bus.send(message.createReply(answer))
                                : bridge_ && bridge_->handleMessage(message, bus);
    }

  private:
    QPointer<QDBusVirtualObject> bridge_;
};

void StandInFrontOfBridge() {
    QDBusConnection bus{QLatin1String(Bus)};
    auto* const object = dynamic_cast<QDBusVirtualObject*>(bus.objectRegisteredAt(Objects));
    if (object != nullptr && dynamic_cast<FrontOfBridge*>(object) == nullptr) {
        bus.unregisterObject(Objects);
        bus.registerVirtualObject(Objects, new FrontOfBridge(object), QDBusConnection::SubPath);
    }
}

// Qt makes its bridge when assistive technology is there, right after it has told so.
class BridgeObserver final : public QAccessible::ActivationObserver {
    void accessibilityActiveChanged(bool active) override {
        if (active) {
            QMetaObject::invokeMethod(QCoreApplication::instance(), StandInFrontOfBridge,
                                      Qt::QueuedConnection);
        }
    }
};

}  // namespace

void CompleteAccessibilityBridge() {
    static BridgeObserver observer;
    QAccessible::installActivationObserver(&observer);
}

#else

void CompleteAccessibilityBridge() {}

#endif

}  // namespace varno
