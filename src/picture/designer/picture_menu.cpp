#include "picture/designer/picture_menu.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include "picture/animated_picture.h"
#include "picture/picture_property_page.h"

PictureMenu::PictureMenu(AnimatedPicture* picture, QObject* parent)
    : QObject(parent), picture_(picture), edit_(new QAction(tr("Picture properties..."), this)) {
  connect(edit_, &QAction::triggered, this, &PictureMenu::Edit);
}

// By the form's cursor, so that Designer can undo it and knows that the form has changed.
void PictureMenu::Edit() {
  if (picture_ == nullptr) return;
  const QPointer form(QDesignerFormWindowInterface::findFormWindow(picture_));
  PicturePropertyPage::Setter setter;
  if (form != nullptr) {
    // Form and picture may go while the page is open, and this menu with them.
    setter = [picture = picture_, form](const char* property, const QVariant& value) {
      if (picture == nullptr || form == nullptr) return;
      form->cursor()->setWidgetProperty(picture, QLatin1String(property), value);
    };
  }
  PicturePropertyPage::edit(picture_, picture_->window(), setter);
}
