#pragma once

#include "look/dialog_frame.h"
#include "platform/services.h"

class LinkButton;
class QGridLayout;
class QLabel;

/// The About box: which program this is, and where its makers are found.
class Form10 : public DialogFrame {
  Q_OBJECT

 public:
  /// `services` outlive the dialog.
  Form10(const Services& services, QWidget* parent);

 private:
  void LayOut();
  QGridLayout* NewLinks();
  QLabel* NewLine(const char* name, const QString& text);
  LinkButton* AddLink(QGridLayout& lines, const char* name, std::string_view label,
                      const QString& shown);
  void FollowWebsite();
  void BeginMail();

  const Services& services_;
};
