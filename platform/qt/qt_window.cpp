#include "platform/qt/qt_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <algorithm>

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
// screen, and moved onto that where it was on none or too large.
QRect OntoScreen(QRect place) {
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
    if (isReached && fitting == place.size()) {
        return place;
    }
    place.setSize(fitting);
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
    return place;
}

}  // namespace

Shell::Shell(QtWindow* window, QWidget* parent, Qt::WindowFlags flags)
    : QMainWindow(parent, flags), window_(window) {
    qApp->installEventFilter(this);
}

void Shell::closeEvent(QCloseEvent* event) {
    if (window_->OnClose) {
        window_->OnClose();
    }
    event->accept();
}

void Shell::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        window_->Resized();
    }
}

void Shell::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous() && window_->modal_ != nullptr) {
        window_->modal_->quit();
    }
}

// Keys that no control wanted.
void Shell::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const std::function<void()>& press = event->key() == Qt::Key_Escape ? window_->pressCancel_
                                         : enter                        ? window_->pressDefault_
                                                                        : nullptr;
    if (press) {
        press();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

bool Shell::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == centralWidget()) {
        window_->Resized();
    }
    if (event->type() == QEvent::KeyPress && window_->OnKeyPress && isActiveWindow()) {
        const QWidget* focus = QApplication::focusWidget();
        const QString text = static_cast<QKeyEvent*>(event)->text();
        const bool first = focus != nullptr ? watched == focus : watched == this;
        if (first && !text.isEmpty()) {
            window_->OnKeyPress(text.at(0).unicode());
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

QtWindow::QtWindow(const WindowDesign& design, QWidget* parent)
    : shell_(this, parent, FlagsFor(design, parent != nullptr)),
      client_(new QWidget(&shell_)),
      frameHeight_(design.menus.empty() ? FrameHeightWithoutMenu : FrameHeightWithMenu) {
    shell_.setObjectName(ToQt(design.name));
    shell_.setWindowTitle(ToQt(design.caption));
    shell_.setCentralWidget(client_);
    AddMenus(design);
    AddControls(design);
    const QSize client(ToPixels(design.clientWidth), ToPixels(design.clientHeight));
    if (design.sizable) {
        shell_.resize(client + QSize(0, MenuBarHeight()));
    } else {
        client_->setFixedSize(client);
        shell_.setFixedSize(client + QSize(0, MenuBarHeight()));
    }
}

QtWindow::~QtWindow() = default;

void QtWindow::AddControls(const WindowDesign& design) {
    QWidget* previous = nullptr;
    for (const ControlDesign& control : design.controls) {
        QWidget* container = control.container.empty()
                                 ? client_
                                 : client_->findChild<QWidget*>(ToQt(control.container));
        NewControl made = MakeControl(control, container);
        ConnectDefaultButtons(control, made.component.get());
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

void QtWindow::ConnectDefaultButtons(const ControlDesign& control, Component* component) {
    auto* button = dynamic_cast<QtButton*>(component);
    if (button == nullptr) {
        return;
    }
    if (control.isDefault) {
        pressDefault_ = [button] { button->Get()->click(); };
        button->Get()->setDefault(true);
    }
    if (control.isCancel) {
        pressCancel_ = [button] { button->Get()->click(); };
    }
}

void QtWindow::AddMenus(const WindowDesign& design) {
    if (design.menus.empty()) {
        return;
    }
    std::map<std::string_view, QMenu*> menus;
    for (const MenuDesign& item : design.menus) {
        const bool isMenu = std::any_of(design.menus.begin(), design.menus.end(),
                                        [&](const MenuDesign& m) { return m.parent == item.name; });
        QWidget* parent = shell_.menuBar();
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
            action = new QAction(&shell_);
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
            QObject::connect(action->menu(), &QMenu::aboutToShow, &shell_, run);
        } else {
            QObject::connect(action, &QAction::triggered, &shell_, run);
        }
        components_.emplace(item.name, std::move(component));
    }
}

Component* QtWindow::Find(std::string_view name) {
    const auto found = components_.find(name);
    return found == components_.end() ? nullptr : found->second.get();
}

void QtWindow::SetCaption(const std::string& caption) {
    shell_.setWindowTitle(ToQt(caption));
}

int QtWindow::MenuBarHeight() const {
    return components_.empty() || shell_.menuWidget() == nullptr
               ? 0
               : shell_.menuWidget()->sizeHint().height();
}

Place QtWindow::ToOuter(const QRect& frame) const {
    return {ToTwips(frame.x()), ToTwips(frame.y()), ToTwips(frame.width()) + FrameWidth,
            ToTwips(frame.height() - MenuBarHeight()) + frameHeight_};
}

Place QtWindow::OuterPlace() const {
    const bool normal = State() == WindowState::Normal;
    const QRect client = normal ? shell_.geometry() : shell_.normalGeometry();
    return ToOuter(normal ? QRect(shell_.pos(), client.size()) : client);
}

Place QtWindow::CurrentOuterPlace() const {
    return {ToTwips(shell_.x()), ToTwips(shell_.y()), ToTwips(client_->width()) + FrameWidth,
            ToTwips(client_->height()) + frameHeight_};
}

void QtWindow::SetOuterPlace(const Place& place) {
    const QSize client(ToPixels(std::max(0, place.width - FrameWidth)),
                       ToPixels(std::max(0, place.height - frameHeight_)) + MenuBarHeight());
    const QSize size = client.expandedTo(shell_.minimumSize());
    const QRect reachable =
        OntoScreen(QRect(QPoint(ToPixels(place.left), ToPixels(place.top)), size));
    shell_.resize(reachable.size());
    shell_.move(reachable.topLeft());
}

// Rounded up: a window of the minimum size is not smaller than it.
void QtWindow::SetMinimumSize(int outerWidth, int outerHeight) {
    const auto roundUp = [](int twips) {
        const int pixels = ToPixels(twips);
        return ToTwips(pixels) < twips ? pixels + 1 : pixels;
    };
    const QSize client(roundUp(outerWidth - FrameWidth), roundUp(outerHeight - frameHeight_));
    client_->setMinimumSize(client);
    shell_.setMinimumSize(client + QSize(0, MenuBarHeight()));
}

WindowState QtWindow::State() const {
    if (!shell_.isVisible() && !shell_.testAttribute(Qt::WA_WState_ExplicitShowHide)) {
        return startState_;
    }
    return shell_.isMinimized()   ? WindowState::Minimised
           : shell_.isMaximized() ? WindowState::Maximised
                                  : WindowState::Normal;
}

void QtWindow::SetState(WindowState state) {
    startState_ = state;
    if (!shell_.isVisible()) {
        return;
    }
    switch (state) {
        case WindowState::Minimised:
            shell_.showMinimized();
            return;
        case WindowState::Maximised:
            shell_.showMaximized();
            return;
        case WindowState::Normal:
            shell_.showNormal();
            return;
    }
}

void QtWindow::Show() {
    switch (startState_) {
        case WindowState::Minimised:
            shell_.showMinimized();
            break;
        case WindowState::Maximised:
            shell_.showMaximized();
            break;
        case WindowState::Normal:
            shell_.show();
            break;
    }
    Resized();
    if (OnActivate) {
        OnActivate();
    }
}

void QtWindow::ShowModal() {
    shell_.setWindowModality(Qt::ApplicationModal);
    if (const QWidget* parent = shell_.parentWidget(); parent != nullptr && !hasPlace_) {
        const QPoint centre = parent->frameGeometry().center() - shell_.rect().center();
        shell_.move(OntoScreen(QRect(centre, shell_.size())).topLeft());
        hasPlace_ = true;
    }
    QEventLoop loop;
    modal_ = &loop;
    Show();
    if (shell_.isVisible()) {
        loop.exec();
    }
    modal_ = nullptr;
}

void QtWindow::Hide() {
    shell_.hide();
}
void QtWindow::Close() {
    shell_.close();
}

void QtWindow::Resized() {
    if (statusStrip_ != nullptr) {
        statusStrip_->resize(client_->width(), statusStrip_->height());
    }
    if (OnResize && shell_.isVisible()) {
        OnResize();
    }
}

}  // namespace varno
