#include "names/editor/option_controls.h"

#include <QComboBox>
#include <QLineEdit>
#include <utility>

QComboBox* NewPick(const PickControl& control, int argument, std::span<const char* const> entries,
                   std::function<void(int)> picked, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(QLatin1String(control.name));
  for (const char* entry : entries) box->addItem(QLatin1String(entry));
  QObject::connect(box, &QComboBox::currentIndexChanged, box,
                   [click = control.click, argument, picked = std::move(picked)](int index) {
                     click(argument, [&] { picked(index); });
                   });
  return box;
}

void HandleChange(QLineEdit* field, const char* name, HandlerFrame change,
                  std::function<void()> changed) {
  field->setObjectName(QLatin1String(name));
  QObject::connect(field, &QLineEdit::textChanged, field,
                   [change, changed = std::move(changed)] { change(0, changed); });
}
