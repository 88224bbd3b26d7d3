#include "window/template_group.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <utility>

#include "look/handlers.h"
#include "platform/qt/text_qt.h"
#include "platform/text.h"
#include "settings/reg_settings.h"
#include "window/template_dialog.h"

namespace {

/// The text of no template.
constexpr std::string_view kDefault = "Default";

}  // namespace

TemplateGroup::TemplateGroup(const Services& services, Window window, QWidget* parent)
    : QGroupBox(tr("Renaming template:"), parent), services_(services), window_(std::move(window)) {
  setObjectName(QStringLiteral("Frame3"));
  hide();
  MakeControls();
  OnSignal(bnSaveTemplate, &QPushButton::clicked, this, "Form1.bnSaveTemplate_Click",
           [this] { bnSaveTemplate_Click(); });
  OnSignal(bnDelete, &QPushButton::clicked, this, "Form1.bnDelete_Click",
           [this] { bnDelete_Click(); });
  OnSignal(cmbTemplate, &QComboBox::currentIndexChanged, this, "Form1.cmbTemplate_Click",
           [this] { cmbTemplate_Click(); });
}

void TemplateGroup::MakeControls() {
  cmbTemplate = new QComboBox(this);
  cmbTemplate->setObjectName(QStringLiteral("cmbTemplate"));
  cmbTemplate->setAccessibleName(title());
  cmbTemplate->setEditable(true);
  cmbTemplate->setInsertPolicy(QComboBox::NoInsert);
  bnSaveTemplate = new QPushButton(tr("Save as..."), this);
  bnSaveTemplate->setObjectName(QStringLiteral("bnSaveTemplate"));
  bnDelete = new QPushButton(tr("Delete"), this);
  bnDelete->setObjectName(QStringLiteral("bnDelete"));
  auto* row = new QHBoxLayout(this);
  row->addWidget(cmbTemplate, 1);
  row->addWidget(bnSaveTemplate);
  row->addWidget(bnDelete);
}

void TemplateGroup::bnSaveTemplate_Click() {
  Form2 dialog(services_.prompts, services_.settings, window());
  gSaveTemplateForm = &dialog;
  const auto release = qScopeGuard([this] { gSaveTemplateForm = nullptr; });
  dialog.TemplateNameOld = text::FromQt(cmbTemplate->currentText());
  dialog.exec();
  SaveSettings(dialog.TemplateNameNew, dialog.RewriteExist);
}

void TemplateGroup::bnDelete_Click() {
  const QString question = tr("Do you really want to delete the selected template?");
  if (!services_.prompts.Ask(text::FromQt(question), PromptIcon::kExclamation)) return;
  DeleteSettings(text::FromQt(cmbTemplate->currentText()));
}

void TemplateGroup::cmbTemplate_Click() {
  const std::string name = text::FromQt(cmbTemplate->currentText());
  bnDelete->setEnabled(!text::EqualIgnoringCase(name, kDefault));
  if (!gTemplateUpdating) window_.IniSettings(name);
}

void TemplateGroup::SaveSettings(const std::string& pTemplateNameNew, std::int16_t pRewriteExist) {
  ErrTrace::inner("Form1.SaveSettings(pTemplateNameNew,pRewriteExist)",
                  ErrTrace::args(pTemplateNameNew, pRewriteExist), [&] {
                    if (pTemplateNameNew.empty() && pRewriteExist == 0) return;
                    if (pRewriteExist <= 0) ShowSaved(text::ToQt(pTemplateNameNew));
                    WriteThrough([&] {
                      SettingsStore& store = services_.settings;
                      const std::int16_t n =
                          pRewriteExist > 0 ? pRewriteExist : AddTemplate(store, pTemplateNameNew);
                      WriteTemplate(store, n, window_.options());
                    });
                  });
}

void TemplateGroup::ShowSaved(const QString& name) {
  // The first entry of a list becomes its text by itself.
  const QScopedValueRollback updating(gTemplateUpdating, true);
  cmbTemplate->addItem(name);
  cmbTemplate->setCurrentIndex(cmbTemplate->count() - 1);
}

void TemplateGroup::DeleteSettings(const std::string& pTemplateName) {
  ErrTrace::inner("Form1.DeleteSettings(pTemplateName)", ErrTrace::args(pTemplateName), [&] {
    WriteThrough([&] {
      DeleteTemplate(services_.settings, pTemplateName);
      TakeFromList(text::ToQt(pTemplateName));
    });
  });
}

void TemplateGroup::TakeFromList(const QString& name) {
  // Nobody chooses the entry that moves up, nor the text that stands for none.
  const QSignalBlocker silent(cmbTemplate);
  cmbTemplate->setCurrentIndex(-1);
  const int count = cmbTemplate->count();
  for (int i = 0; i < count; ++i) {
    if (cmbTemplate->itemText(i) == name) cmbTemplate->removeItem(i);
  }
  cmbTemplate->setEditText(text::ToQt(kDefault));
}

void TemplateGroup::WriteThrough(const std::function<void()>& write) {
  const auto flush = [this] { mRegSettings::Flush(services_.settings); };
  ErrTrace::OnFailure("TemplateGroup.WriteThrough", flush, write);
  flush();
}

TemplateOptions ReadTemplateOptions(const QWidget& window, const RecordList& files) {
  TemplateOptions options{
      .controls = {}, .SortColumn = files.SortColumn(), .SortOrder = files.SortAscending()};
  for (const std::string& control : TemplateControls()) {
    const QString name = text::ToQt(control);
    const auto* field = window.findChild<QLineEdit*>(name);
    options.controls.push_back(
        field != nullptr ? text::FromQt(field->text())
                         : std::to_string(window.findChild<QComboBox*>(name)->currentIndex()));
  }
  return options;
}
