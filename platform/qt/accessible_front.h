// An accessible interface in front of the one that Qt has for a widget: it says the same, but for
// what a class derived from it says otherwise.
#pragma once

#include <QAccessible>
#include <QWidget>

namespace varno {

class AccessibleFront : public QAccessibleInterface {
  public:
    // Of two interfaces of a widget, the one that was registered last is asked.
    explicit AccessibleFront(QWidget* widget)
        : own_(QAccessible::queryAccessibleInterface(widget)),
          ownId_(QAccessible::uniqueId(own_)) {}
    ~AccessibleFront() override { QAccessible::deleteAccessibleInterface(ownId_); }

    bool isValid() const override { return own_->isValid(); }
    QObject* object() const override { return own_->object(); }
    QWindow* window() const override { return own_->window(); }
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        return own_->relations(match);
    }
    QAccessibleInterface* focusChild() const override { return own_->focusChild(); }
    QAccessibleInterface* childAt(int x, int y) const override { return own_->childAt(x, y); }
    QAccessibleInterface* parent() const override { return own_->parent(); }
    QAccessibleInterface* child(int index) const override { return own_->child(index); }
    int childCount() const override { return own_->childCount(); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return own_->indexOfChild(child);
    }
    QString text(QAccessible::Text which) const override { return own_->text(which); }
    void setText(QAccessible::Text which, const QString& text) override {
        own_->setText(which, text);
    }
    QRect rect() const override { return own_->rect(); }
    QAccessible::Role role() const override { return own_->role(); }
    QAccessible::State state() const override { return own_->state(); }
    QColor foregroundColor() const override { return own_->foregroundColor(); }
    QColor backgroundColor() const override { return own_->backgroundColor(); }
    void virtual_hook(int id, void* data) override { own_->virtual_hook(id, data); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return own_->interface_cast(type);
    }

  private:
    QAccessibleInterface* own_;
    QAccessible::Id ownId_;  // by which Qt knows whether it has gone already
};

}  // namespace varno
