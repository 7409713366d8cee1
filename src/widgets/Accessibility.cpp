#include "widgets/Accessibility.h"

#include "widgets/FilledBar.h"
#include "widgets/Form.h"

#include <QAccessibleWidget>

namespace turnpost {

namespace {

class AccessibleBar final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleBar(FilledBar* read)
        : QAccessibleWidget(read, QAccessible::ProgressBar), bar_(read) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return bar_->percent(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return 100; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant&) override {}

  private:
    FilledBar* bar_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* bar = dynamic_cast<FilledBar*>(object)) {
        return new AccessibleBar(bar);
    }
    auto* form = dynamic_cast<Form*>(object);
    const bool isMain = form != nullptr && form->windowType() == Qt::Window;
    return isMain ? new QAccessibleWidget(form, QAccessible::Window) : nullptr;
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(makeAccessible);
}

} // namespace turnpost
