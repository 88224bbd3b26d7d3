#include "names/editor/option_pane.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "look/elided_box.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"

OptionPane::OptionPane(const Parts& parts)
    : Card(QLatin1String(parts.kind.pane), QLatin1String(parts.kind.title), parts.parent),
      kind_(parts.kind.number),
      services_(parts.services),
      shown_(parts.shown) {}

void OptionPane::ShowItem() {
  if (const ConstrItem* shown = Shown()) Fill(ConstrItem(*shown));
}

QComboBox* OptionPane::NewBox(QWidget* parent, const std::string& name,
                              std::span<const std::string_view> entries) {
  auto* box = new ElidedBox(parent);
  box->setObjectName(text::ToQt(name));
  for (const std::string_view entry : entries) box->addItem(text::ToQt(entry));
  return box;
}

QComboBox* OptionPane::NewPick(QWidget* parent, const std::string& name,
                               std::span<const std::string_view> entries,
                               std::function<void(int)> picked) {
  QComboBox* box = NewBox(parent, name, entries);
  OnSignal(box, &QComboBox::currentIndexChanged, HandlerOf(name, "_Click"),
           [this, picked = std::move(picked)](int index) {
             emit optionChanged();
             picked(index);
           });
  return box;
}

void OptionPane::HandleChange(QLineEdit* field, const std::string& name,
                              std::function<void()> changed) {
  field->setObjectName(text::ToQt(name));
  OnSignal(field, &QLineEdit::textChanged, HandlerOf(name, "_Change"),
           [this, changed = std::move(changed)] {
             emit optionChanged();
             if (changed) changed();
           });
}
