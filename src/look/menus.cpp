#include "look/menus.h"

#include <QAction>
#include <QMenu>

#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

QAction* AddButton(QMenu& Controls, int ID, const QString& Caption, bool BeginGroup) {
  constexpr int ControlType = 1;  // a button, the only type there is
  const std::string told = text::FromQt(Caption);
  return ErrTrace::inner("Form1.AddButton(Controls,ControlType,ID,Caption,BeginGroup)",
                         ErrTrace::args(Controls, ControlType, ID, told, BeginGroup), [&] {
                           if (BeginGroup && !Controls.isEmpty()) Controls.addSeparator();
                           QAction* button = Controls.addAction(Caption);
                           button->setData(ID);
                           return button;
                         });
}
