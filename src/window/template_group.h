#pragma once

#include <QGroupBox>
#include <cstdint>
#include <functional>
#include <string>

#include "filelist/record_list.h"
#include "platform/services.h"
#include "settings/templates.h"

class Form2;
class QComboBox;
class QPushButton;

/// The group "Renaming template:", `Frame3` of the main window. It is never shown: its commands are
/// there, but no way leads to them.
class TemplateGroup : public QGroupBox {
  Q_OBJECT

 public:
  /// What the group needs of the window.
  struct Window {
    std::function<TemplateOptions()> options;  ///< what a template keeps, as it is now
    std::function<void(const std::string& pTemplateName)> IniSettings;
  };

  /// The services outlive the group.
  TemplateGroup(const Services& services, Window window, QWidget* parent);

  QComboBox* cmbTemplate;  ///< lists what was saved since the start
  QPushButton* bnSaveTemplate;
  QPushButton* bnDelete;

  Form2* gSaveTemplateForm = nullptr;  ///< null unless it is open

 private:
  void MakeControls();
  void bnSaveTemplate_Click();
  void bnDelete_Click();
  void cmbTemplate_Click();
  /// Overwrites the options of the template `pRewriteExist`; if that is 0, makes a new template,
  /// unless the name is empty.
  void SaveSettings(const std::string& pTemplateNameNew, std::int16_t pRewriteExist);
  void DeleteSettings(const std::string& pTemplateName);
  void ShowSaved(const QString& name);
  void TakeFromList(const QString& name);
  /// Runs `write` and brings what it has written to disk, after a failure too.
  void WriteThrough(const std::function<void()>& write);

  const Services& services_;
  const Window window_;
  bool gTemplateUpdating = false;
};

/// What a template keeps of the controls of `window` and of the list.
TemplateOptions ReadTemplateOptions(const QWidget& window, const RecordList& files);
