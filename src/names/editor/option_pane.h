#pragma once

#include <QString>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "look/card.h"
#include "names/element_kinds.h"
#include "platform/services.h"

class QComboBox;
class QLabel;
class QLineEdit;

/// The options of one kind of element: a view of the element that is shown, filled anew when
/// another one is. Every edit goes into the element at once, a number when its field is left.
class OptionPane : public Card {
  Q_OBJECT

 public:
  /// What every pane is made from; the services outlive it.
  struct Parts {
    const ElementKind& kind;
    const Services& services;
    std::function<ConstrItem*()> shown;  ///< the element that is shown; null when there is none
    QWidget* parent;
  };

  ItemType Kind() const { return kind_; }

  /// Fills the controls from the shown element, and derives what its options only imply. A control
  /// whose value differs from what it held counts as edited.
  void ShowItem();

 signals:
  /// Sent first of all that a change of a control's value does.
  void optionChanged();

 protected:
  explicit OptionPane(const Parts& parts);

  /// Shows the options of `item`, a copy: the handlers write into the element while it is read.
  virtual void Fill(const ConstrItem& item) = 0;

  ConstrItem* Shown() const { return shown_(); }
  const Services& Supplied() const { return services_; }

  /// A combo box called `name` with the texts of `entries`. `parent` is the pane or a page of it.
  QComboBox* NewBox(QWidget* parent, const std::string& name,
                    std::span<const std::string_view> entries);
  /// The same; each change of its entry is an edit, and runs `picked` with the new index.
  QComboBox* NewPick(QWidget* parent, const std::string& name,
                     std::span<const std::string_view> entries, std::function<void(int)> picked);
  /// Names `field`; each change of its text is an edit, and runs `changed`.
  void HandleChange(QLineEdit* field, const std::string& name, std::function<void()> changed = {});

 private:
  const ItemType kind_;
  const Services& services_;
  std::function<ConstrItem*()> shown_;
};
