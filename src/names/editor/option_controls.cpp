#include "names/editor/option_controls.h"

#include <QComboBox>
#include <QLineEdit>
#include <utility>

#include "look/handlers.h"

QComboBox* NewPick(const char* name, std::span<const char* const> entries,
                   std::function<void(int)> picked, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(QLatin1String(name));
  for (const char* entry : entries) box->addItem(QLatin1String(entry));
  OnSignal(box, &QComboBox::currentIndexChanged, HandlerOf(name, "_Click"), std::move(picked));
  return box;
}

void HandleChange(QLineEdit* field, const char* name, std::function<void()> changed) {
  field->setObjectName(QLatin1String(name));
  OnSignal(field, &QLineEdit::textChanged, HandlerOf(name, "_Change"), std::move(changed));
}
