#include "platform/qt/accessibility_bridge.h"

#if __has_include(<QDBusVirtualObject>)
#include <QApplication>
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
constexpr const char* Accessible = "org.a11y.atspi.Accessible";
constexpr const char* Action = "org.a11y.atspi.Action";
constexpr const char* EditableText = "org.a11y.atspi.EditableText";
constexpr const char* Table = "org.a11y.atspi.Table";
constexpr const char* Text = "org.a11y.atspi.Text";

bool IsToggleButton(const QAccessibleInterface& object) {
    const auto* const button = qobject_cast<const QPushButton*>(object.object());
    return button != nullptr && button->isCheckable();
}

QVariant Role(QAccessibleInterface& object, const QVariantList& /*arguments*/) {
    constexpr uint ToggleButton = 62;
    return IsToggleButton(object) ? QVariant(ToggleButton) : QVariant();
}

QVariant RoleName(QAccessibleInterface& object, const QVariantList& /*arguments*/) {
    return IsToggleButton(object) ? QVariant(QStringLiteral("toggle button")) : QVariant();
}

QVariant Attributes(QAccessibleInterface& object, const QVariantList& /*arguments*/) {
    using Map = QMap<QString, QString>;
    return object.role() == QAccessible::Heading
               ? QVariant::fromValue(Map{{QStringLiteral("level"), object.text(HeadingLevel)}})
               : QVariant();
}

// A box or dialog keeps keys and mouse from what is behind it; Qt lets the bus through.
bool IsBlocked(const QAccessibleInterface& object) {
    const QWidget* const modal = QApplication::activeModalWidget();
    const QWidget* widget = nullptr;
    for (const auto* at = &object; at != nullptr && widget == nullptr; at = at->parent()) {
        widget = qobject_cast<QWidget*>(at->object());
    }
    while (widget != nullptr && widget != modal) {
        widget = widget->parentWidget();
    }
    return modal != nullptr && widget == nullptr;
}

QVariant RefuseIfBlocked(QAccessibleInterface& object, const QVariantList& /*arguments*/) {
    return IsBlocked(object) ? QVariant(false) : QVariant();
}

// Qt answers when all is done, and so keeps whoever opens a box waiting until it is closed. What a
// value can do besides is left to Qt.
QVariant ActSoon(QAccessibleInterface& object, const QVariantList& arguments) {
    QAccessibleActionInterface* const actions = object.actionInterface();
    const int index = arguments.value(0, -1).toInt();
    const QString name = actions != nullptr ? actions->actionNames().value(index) : QString();
    if (name.isEmpty() || IsBlocked(object)) {
        return RefuseIfBlocked(object, arguments);
    }
    const auto act = [id = QAccessible::uniqueId(&object), name] {
        QAccessibleInterface* const still = QAccessible::accessibleInterface(id);
        if (still != nullptr && still->isValid() && still->actionInterface() != nullptr &&
            !IsBlocked(*still)) {
            still->actionInterface()->doAction(name);
        }
    };
    return QMetaObject::invokeMethod(QCoreApplication::instance(), act, Qt::QueuedConnection);
}

struct Answer {
    const char* interface;
    const char* question;
    // Invalid: as Qt says.
    QVariant (*about)(QAccessibleInterface& object, const QVariantList& arguments);
};

constexpr Answer Answers[] = {
    {Accessible, "GetRole", Role},
    {Accessible, "GetRoleName", RoleName},
    {Accessible, "GetLocalizedRoleName", RoleName},
    {Accessible, "GetAttributes", Attributes},
    {Action, "DoAction", ActSoon},
    {EditableText, "SetTextContents", RefuseIfBlocked},
    {EditableText, "InsertText", RefuseIfBlocked},
    {EditableText, "DeleteText", RefuseIfBlocked},
    {EditableText, "CutText", RefuseIfBlocked},
    {EditableText, "PasteText", RefuseIfBlocked},
    {Table, "AddRowSelection", RefuseIfBlocked},
    {Text, "SetCaretOffset", RefuseIfBlocked},
};

QVariant AnswerTo(const QDBusMessage& message) {
    const QAccessible::Id id = message.path().section(u'/', -1).toUInt();
    QAccessibleInterface* const object = QAccessible::accessibleInterface(id);
    for (const Answer& answer : Answers) {
        if (object != nullptr && object->isValid() &&
            message.interface() == QLatin1String(answer.interface) &&
            message.member() == QLatin1String(answer.question)) {
            return answer.about(*object, message.arguments());
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
