#include "platform/qt/simple_controls.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QValidator>
#include <algorithm>

namespace varno {
namespace {

const QColor StripGrey(192, 192, 192);

Qt::Alignment ToQt(Alignment alignment) {
    switch (alignment) {
        case Alignment::Centre:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        case Alignment::Right:
            return Qt::AlignRight | Qt::AlignVCenter;
        case Alignment::Left:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

// Tells a control that it received the focus.
template <class Widget, class Interface>
class Focusable : public Widget {
  public:
    Focusable(Interface* control, QWidget* parent) : Widget(parent), control_(control) {}

  protected:
    void focusInEvent(QFocusEvent* event) override {
        Widget::focusInEvent(event);
        if (IsNewFocus(*event) && control_->OnGotFocus) {
            control_->OnGotFocus();
        }
    }

    Interface* control_;
};

class ToggleFace final : public Focusable<FaceButton, ToggleButton> {
  public:
    ToggleFace(ToggleButton* control, QWidget* parent) : Focusable(control, parent) {
        setCheckable(true);
        QObject::connect(this, &QPushButton::toggled, [this] {
            if (!mouse_ && control_->OnClick) {
                control_->OnClick();
            }
        });
    }

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        mouse_ = true;
        FaceButton::mouseReleaseEvent(event);
        mouse_ = false;
        if (rect().contains(event->position().toPoint()) && control_->OnMouseUp) {
            control_->OnMouseUp();
        }
    }

  private:
    bool mouse_ = false;  // the toggle in progress is the mouse's
};

// Drops the characters that the text box does not take, however they came in.
class CharacterFilter final : public QValidator {
  public:
    CharacterFilter(TextBox* control, QObject* parent) : QValidator(parent), control_(control) {}

    State validate(QString& input, int& position) const override {
        if (!control_->OnKeyPress) {
            return Acceptable;
        }
        QString kept;
        int keptPosition = position;
        for (int i = 0; i < input.size(); ++i) {
            if (control_->OnKeyPress(input.at(i).unicode())) {
                kept += input.at(i);
            } else if (i < position) {
                --keptPosition;
            }
        }
        input = kept;
        position = keptPosition;
        return Acceptable;
    }

  private:
    TextBox* control_;
};

void ApplyCaption(const ControlDesign& design, QAbstractButton* button) {
    button->setText(varno::ToQt(design.caption));
}

}  // namespace

void ApplyDesign(const ControlDesign& design, QWidget* widget) {
    widget->setObjectName(ToQt(design.name));
    widget->setGeometry(ToPixels(design.place));
    widget->setFont(ToQt(design.font));
    widget->setEnabled(design.enabled);
    widget->setVisible(design.visible);
    if (!design.accessibleName.empty()) {
        widget->setAccessibleName(ToQt(design.accessibleName));
    }
    widget->setAccessibleDescription(ToQt(design.accessibleDescription));
}

void UseWhitePaper(QWidget* widget, const QColor& ink) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, ink);
    widget->setPalette(palette);
}

QtFrame::QtFrame(const ControlDesign& design, QWidget* parent) : QtControl(new QWidget(parent)) {
    ApplyDesign(design, widget_);
    if (design.kind == ControlKind::StatusStrip) {
        QPalette palette = widget_->palette();
        palette.setColor(QPalette::Window, StripGrey);
        widget_->setPalette(palette);
        widget_->setAutoFillBackground(true);
    }
}

void ElidingLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
    setToolTip(shown == text() ? QString() : text());
}

QtLabel::QtLabel(const ControlDesign& design, QWidget* parent)
    : QtControl(new ElidingLabel(parent)),
      designWidth_(ToPixels(design.place.width)),
      largestWidth_(std::max(designWidth_, ToPixels(design.growsTo))) {
    ApplyDesign(design, widget_);
    widget_->setTextFormat(Qt::PlainText);
    widget_->setAlignment(ToQt(design.alignment));
    widget_->setText(varno::ToQt(design.caption));
    if (design.colour != TextColour) {
        QPalette palette = widget_->palette();
        palette.setColor(QPalette::WindowText, varno::ToQt(design.colour));
        widget_->setPalette(palette);
    }
}

void QtLabel::SetCaption(const std::string& caption) {
    widget_->setText(varno::ToQt(caption));
    if (largestWidth_ != designWidth_) {
        FitCaption();
    }
    if (OnChange) {
        OnChange();
    }
}

void QtLabel::FitCaption() {
    const int needed = widget_->fontMetrics().horizontalAdvance(widget_->text()) + 2;
    const int width = std::clamp(needed, designWidth_, largestWidth_);
    QRect place = widget_->geometry();
    if (widget_->alignment().testFlag(Qt::AlignRight)) {
        place.setLeft(place.right() - width + 1);
    } else {
        place.setWidth(width);
    }
    widget_->setGeometry(place);
}

QtButton::QtButton(const ControlDesign& design, QWidget* parent)
    : QtControl(new Focusable<FaceButton, Button>(this, parent)) {
    ApplyDesign(design, widget_);
    ApplyCaption(design, widget_);
    QObject::connect(widget_, &QPushButton::clicked, widget_, [this] {
        if (OnClick) {
            OnClick();
        }
    });
}

QtToggleButton::QtToggleButton(const ControlDesign& design, QWidget* parent)
    : QtControl(new ToggleFace(this, parent)) {
    ApplyDesign(design, widget_);
    ApplyCaption(design, widget_);
}

QRect WrappingCheckBox::CaptionRect() const {
    const int indicator = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
    const int gap = style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, this);
    return rect().adjusted(indicator + gap, 0, 0, 0);
}

void WrappingCheckBox::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_CheckBox, option);
    painter.drawText(CaptionRect(),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic,
                     text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = CaptionRect();
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void QtToggleButton::SetValue(bool pressed) {
    const QSignalBlocker quiet(widget_);
    widget_->setChecked(pressed);
}

void QtCheckBox::SetValue(bool ticked) {
    const QSignalBlocker quiet(widget_);
    widget_->setChecked(ticked);
}

QtCheckBox::QtCheckBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new WrappingCheckBox(parent)) {
    ApplyDesign(design, widget_);
    ApplyCaption(design, widget_);
    QObject::connect(widget_, &QCheckBox::toggled, widget_, [this] {
        if (OnClick) {
            OnClick();
        }
    });
}

QtTextBox::QtTextBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new Focusable<QLineEdit, TextBox>(this, parent)) {
    ApplyDesign(design, widget_);
    if (design.maxLength > 0) {
        widget_->setMaxLength(design.maxLength);
    }
    if (design.colour != TextColour) {
        UseWhitePaper(widget_, varno::ToQt(design.colour));
    }
    widget_->setValidator(new CharacterFilter(this, widget_));
    QObject::connect(widget_, &QLineEdit::textChanged, widget_, [this] {
        if (OnChange) {
            OnChange();
        }
    });
}

QtDropDownList::QtDropDownList(const ControlDesign& design, QWidget* parent)
    : QtControl(new Focusable<QComboBox, DropDownList>(this, parent)) {
    ApplyDesign(design, widget_);
    QObject::connect(widget_, &QComboBox::activated, widget_, [this] {
        if (OnClick) {
            OnClick();
        }
    });
    const QAbstractItemView& list = *widget_->view();
    QObject::connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, widget_,
                     [this, &list] {
                         if (!list.isVisible()) {
                             return TakeSelection(widget_->currentIndex());
                         }
                         const auto takeFromOpen = [this, &list] {
                             if (list.isVisible()) {
                                 TakeSelection(list.currentIndex().row());
                             }
                         };
                         QMetaObject::invokeMethod(widget_, takeFromOpen, Qt::QueuedConnection);
                     });
}

// Assistive technology chooses by selecting a row, whether the list is open or not; the current row
// of an open one, which keys and mouse select too, stays where it is.
void QtDropDownList::TakeSelection(int current) {
    const QModelIndexList selected = widget_->view()->selectionModel()->selectedRows();
    if (!selected.isEmpty() && selected.first().row() != current) {
        widget_->hidePopup();
        widget_->setCurrentIndex(selected.first().row());
        emit widget_->activated(widget_->currentIndex());
    }
}

QtTimer::QtTimer(const ControlDesign& design) {
    timer_.setInterval(design.interval);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        if (OnTimer) {
            OnTimer();
        }
    });
    SetEnabled(design.enabled);
}

void QtTimer::SetEnabled(bool enabled) {
    if (enabled && !timer_.isActive()) {
        timer_.start();
    } else if (!enabled) {
        timer_.stop();
    }
}

}  // namespace varno
