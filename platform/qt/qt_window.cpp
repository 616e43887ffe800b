#include "platform/qt/qt_window.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "platform/qt/announcement.h"
#include "platform/qt/control_factory.h"
#include "platform/qt/measures.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

// How much of a window has to lie on a screen to be within reach.
constexpr int ReachablePixels = 40;

Qt::WindowFlags FlagsFor(const WindowDesign& design, bool isDialog) {
    Qt::WindowFlags flags = isDialog ? Qt::Dialog : Qt::Window;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowCloseButtonHint;
    flags.setFlag(Qt::WindowMinimizeButtonHint, design.minimizeButton);
    flags.setFlag(Qt::WindowMaximizeButtonHint, design.maximizeButton);
    return flags;
}

// Whether a title bar above `place` can be reached on this screen.
bool IsWithinReach(const QRect& place, const QRect& screen) {
    const QRect title(place.topLeft(), QSize(place.width(), ReachablePixels));
    const QRect seen = screen.intersected(title);
    return seen.width() >= ReachablePixels && seen.height() >= ReachablePixels / 2;
}

// `place`, whose top left corner is that of the window manager's frame, made no larger than its
// screen, and moved onto that where it was on none or too large, or is to be seen whole.
QRect OntoScreen(QRect place, bool whole) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    bool isReached = false;
    for (const QScreen* other : QGuiApplication::screens()) {
        if (!isReached && IsWithinReach(place, other->availableGeometry())) {
            screen = other;
            isReached = true;
        }
    }
    if (screen == nullptr) {
        return place;
    }
    const int border = QApplication::style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = screen->availableGeometry().adjusted(0, 0, -2 * border, -title - border);
    const QSize fitting = place.size().boundedTo(room.size());
    if ((whole ? room.contains(place) : isReached) && fitting == place.size()) {
        return place;
    }
    place.setSize(fitting);
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
    return place;
}

}  // namespace

QtWindow::QtWindow(const WindowDesign& design, QWidget* parent)
    : frameHeight_(design.menus.empty() ? FrameHeightWithoutMenu : FrameHeightWithMenu) {
    const Qt::WindowFlags flags = FlagsFor(design, parent != nullptr);
    if (design.menus.empty()) {
        widget_ = std::make_unique<QDialog>(parent, flags);
        client_ = widget_.get();
    } else {
        auto main = std::make_unique<QMainWindow>(parent, flags);
        client_ = new QWidget;
        main->setCentralWidget(client_);
        menuBar_ = main->menuBar();
        AddMenus(design, *main->menuBar());
        widget_ = std::move(main);
    }
    widget_->setObjectName(ToQt(design.name));
    widget_->setWindowTitle(ToQt(design.caption));
    AddControls(design);
    TieLabels(design);
    contextItems_ = std::make_unique<ContextItems>(design.contextItems, *widget_, components_);
    const QSize client(ToPixels(design.clientWidth), ToPixels(design.clientHeight));
    const QSize size = client + QSize(0, MenuBarHeight());
    widget_->resize(size);
    if (!design.sizable) {
        widget_->setFixedSize(size);
    }
    qApp->installEventFilter(this);
}

QtWindow::~QtWindow() {
    qApp->removeEventFilter(this);
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        PreviewKey(watched, key.text());
        // No control wanted it. Of its own accord a dialog would hide itself.
        if (watched == widget_.get() && key.key() == Qt::Key_Escape) {
            if (cancelButton_ != nullptr) {
                cancelButton_->click();
            }
            return true;
        }
        if (watched == widget_.get() && contextItems_->Press(key)) {
            return true;
        }
    } else if (event->type() == QEvent::Resize && watched == client_) {
        Resized();
    } else if (event->type() == QEvent::WindowStateChange && watched == widget_.get()) {
        Resized();
    } else if (event->type() == QEvent::Close && watched == widget_.get() && OnClose) {
        OnClose();
    }
    return false;
}

// Each key goes to the control that has the focus first, or to the window when none has it.
void QtWindow::PreviewKey(const QObject* receiver, const QString& text) {
    if (!OnKeyPress || text.isEmpty() || !widget_->isActiveWindow()) {
        return;
    }
    const QWidget* focus = QApplication::focusWidget();
    if (receiver == (focus != nullptr ? focus : widget_.get())) {
        OnKeyPress(text.at(0).unicode());
    }
}

void QtWindow::AddControls(const WindowDesign& design) {
    QWidget* previous = nullptr;
    for (const ControlDesign& control : design.controls) {
        QWidget* container = control.container.empty()
                                 ? client_
                                 : client_->findChild<QWidget*>(ToQt(control.container));
        NewControl made = MakeControl(control, container);
        NoteButtonRoles(control, made.component.get());
        if (control.kind == ControlKind::StatusStrip) {
            statusStrip_ = made.widget;
        }
        if (made.widget != nullptr && made.widget->focusPolicy() != Qt::NoFocus) {
            if (previous != nullptr) {
                QWidget::setTabOrder(previous, made.widget);
            }
            previous = made.widget;
        }
        components_.emplace(control.name, std::move(made.component));
    }
}

void QtWindow::TieLabels(const WindowDesign& design) {
    for (const ControlDesign& control : design.controls) {
        if (!control.buddy.empty()) {
            client_->findChild<QLabel*>(ToQt(control.name))
                ->setBuddy(client_->findChild<QWidget*>(ToQt(control.buddy)));
        }
    }
}

void QtWindow::NoteButtonRoles(const ControlDesign& control, Component* component) {
    auto* button = dynamic_cast<QtButton*>(component);
    if (button == nullptr) {
        return;
    }
    button->Get()->setDefault(control.isDefault);
    if (control.isCancel) {
        cancelButton_ = button->Get();
    }
}

void QtWindow::AddMenus(const WindowDesign& design, QMenuBar& menuBar) {
    std::map<std::string_view, QMenu*> menus;
    for (const MenuDesign& item : design.menus) {
        const bool isMenu = std::any_of(design.menus.begin(), design.menus.end(),
                                        [&](const MenuDesign& m) { return m.parent == item.name; });
        QWidget* parent = &menuBar;
        if (!item.parent.empty()) {
            parent = menus.at(item.parent);
        }
        QAction* action = nullptr;
        if (isMenu) {
            auto* menu = new QMenu(ToQt(item.caption), parent);
            menu->setObjectName(ToQt(item.name) + QStringLiteral(".Menu"));
            menus[item.name] = menu;
            action = menu->menuAction();
        } else {
            action = new QAction(&menuBar);
            if (item.caption == "-") {
                action->setSeparator(true);  // a text would be drawn beside the line
            } else {
                action->setText(ToQt(item.caption));
            }
        }
        action->setObjectName(ToQt(item.name));
        action->setEnabled(item.enabled);
        action->setVisible(item.visible);
        parent->addAction(action);

        auto component = std::make_unique<QtMenuItem>(action);
        const auto run = [component = component.get()] {
            if (component->OnClick) {
                component->OnClick();
            }
        };
        if (isMenu) {
            QObject::connect(action->menu(), &QMenu::aboutToShow, &menuBar, run);
        } else {
            QObject::connect(action, &QAction::triggered, &menuBar, run);
        }
        components_.emplace(item.name, std::move(component));
    }
}

Component* QtWindow::Find(std::string_view name) {
    const auto found = components_.find(name);
    return found == components_.end() ? nullptr : found->second.get();
}

void QtWindow::SetCaption(const std::string& caption) {
    widget_->setWindowTitle(ToQt(caption));
}

int QtWindow::MenuBarHeight() const {
    return menuBar_ == nullptr ? 0 : menuBar_->sizeHint().height();
}

Place QtWindow::ToOuter(const QRect& frame) const {
    return {ToTwips(frame.x()), ToTwips(frame.y()), ToTwips(frame.width()) + FrameWidth,
            ToTwips(frame.height() - MenuBarHeight()) + frameHeight_};
}

Place QtWindow::OuterPlace() const {
    const bool normal = State() == WindowState::Normal;
    const QRect client = normal ? widget_->geometry() : widget_->normalGeometry();
    return ToOuter(normal ? QRect(widget_->pos(), client.size()) : client);
}

Place QtWindow::CurrentOuterPlace() const {
    return {ToTwips(widget_->x()), ToTwips(widget_->y()), ToTwips(client_->width()) + FrameWidth,
            ToTwips(client_->height()) + frameHeight_};
}

void QtWindow::SetOuterPlace(const Place& place) {
    const QSize client(ToPixels(std::max(0, place.width - FrameWidth)),
                       ToPixels(std::max(0, place.height - frameHeight_)) + MenuBarHeight());
    const QSize size = client.expandedTo(widget_->minimumSize());
    const QRect reachable =
        OntoScreen(QRect(QPoint(ToPixels(place.left), ToPixels(place.top)), size),
                   widget_->parentWidget() != nullptr);
    widget_->resize(reachable.size());
    widget_->move(reachable.topLeft());
}

// Rounded up: a window of the minimum size is not smaller than it.
void QtWindow::SetMinimumSize(int outerWidth, int outerHeight) {
    const auto roundUp = [](int twips) {
        const int pixels = ToPixels(twips);
        return ToTwips(pixels) < twips ? pixels + 1 : pixels;
    };
    const QSize client(roundUp(outerWidth - FrameWidth), roundUp(outerHeight - frameHeight_));
    client_->setMinimumSize(client);
    widget_->setMinimumSize(client + QSize(0, MenuBarHeight()));
}

WindowState QtWindow::State() const {
    return widget_->isMinimized()   ? WindowState::Minimised
           : widget_->isMaximized() ? WindowState::Maximised
                                    : WindowState::Normal;
}

void QtWindow::SetState(WindowState state) {
    constexpr Qt::WindowState States[] = {Qt::WindowNoState, Qt::WindowMinimized,
                                          Qt::WindowMaximized};
    widget_->setWindowState(States[static_cast<int>(state)]);
}

void QtWindow::Show() {
    widget_->show();
    Activated();
}

// A dialog stands in the middle of the main window until it has a place.
void QtWindow::ShowModal() {
    QMetaObject::invokeMethod(this, &QtWindow::Activated, Qt::QueuedConnection);
    static_cast<QDialog&>(*widget_).exec();
    widget_->setAttribute(Qt::WA_Moved);
}

void QtWindow::Activate() {
    widget_->raise();
    widget_->activateWindow();
}
void QtWindow::Announce(const std::string& text) {
    AnnounceFrom(widget_.get(), ToQt(text));
}
void QtWindow::Hide() {
    widget_->hide();
}
void QtWindow::Close() {
    widget_->close();
}

void QtWindow::Activated() {
    Resized();
    if (OnActivate) {
        OnActivate();
    }
}

void QtWindow::Resized() {
    if (statusStrip_ != nullptr) {
        statusStrip_->resize(client_->width(), statusStrip_->height());
    }
    if (OnResize && widget_->isVisible()) {
        OnResize();
    }
}

}  // namespace varno
