#include "platform/qt/announcement.h"

#include <QAccessible>
#if __has_include(<QDBusConnection>)
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#define VARNO_ACCESSIBILITY_BUS
#endif

namespace varno {
namespace {

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

void Send(QWidget* window, const QString& text) {
    QAccessibleAnnouncementEvent event(window, text);
    QAccessible::updateAccessibility(&event);
}

#elif defined(VARNO_ACCESSIBILITY_BUS)

// This Qt has no such event. What later ones send goes over the connection of its bridge.
void Send(QWidget* window, const QString& text) {
    constexpr int Polite = 1;
    const QDBusConnection bus(QStringLiteral("a11y"));
    QAccessibleInterface* source = QAccessible::queryAccessibleInterface(window);
    if (!bus.isConnected() || source == nullptr) {
        return;
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(source)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
    signal << QString() << Polite << 0 << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    bus.send(signal);
}

#else

void Send(QWidget* window, const QString& /*text*/) {
    QAccessibleEvent event(window, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

#endif

}  // namespace

void AnnounceFrom(QWidget* window, const QString& text) {
    if (QAccessible::isActive()) {
        Send(window, text);
    }
}

}  // namespace varno
