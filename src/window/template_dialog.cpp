#include "window/template_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QShowEvent>
#include <QVBoxLayout>

#include "look/card.h"
#include "look/look.h"
#include "look/name_field.h"
#include "platform/qt/text_qt.h"
#include "platform/text.h"
#include "settings/templates.h"
#include "trace/err_trace.h"

namespace {

constexpr int kFieldWidth = 300;
constexpr std::string_view kReservedName = "default";
/// A name by which whoever looks into the reporting of failures makes one.
constexpr std::string_view kFaultDemo = "faultdemofaultdemo";

}  // namespace

Form2::Form2(Prompts& prompts, SettingsStore& settings, QWidget* parent)
    : DialogFrame("Form2", tr("Save template as"), Buttons::kOkAndCancel, parent),
      prompts_(prompts),
      settings_(settings) {
  fdTemplate = new QLineEdit(this);
  fdTemplate->setObjectName(QStringLiteral("fdTemplate"));
  fdTemplate->setMinimumWidth(kFieldWidth);
  HoldWhatIsShown(fdTemplate);
  Body()->setSpacing(measure::kControlGap);
  Body()->addWidget(NewLabel(tr("&Save this template as:"), fdTemplate, this));
  Body()->addWidget(fdTemplate);
  Body()->addStretch();
  fdTemplate->setFocus();
  KeepPlacement(settings);
}

void Form2::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) ErrTrace::top(Handler("Form_Load"), [this] { Form_Load(); });
  DialogFrame::showEvent(event);
}

/// At the showing, for the old name is given after the dialog was made.
void Form2::Form_Load() {
  fdTemplate->setText(text::ToQt(TemplateNameOld));
  fdTemplate->selectAll();
}

void Form2::bnOK_Click() {
  const std::string name = text::FromQt(fdTemplate->text());
  if (name == kFaultDemo) throw Failure(kDivisionByZero, "Division by zero");
  if (IsRefused(name) || !MayTake(name)) return;
  TemplateNameNew = name;
  accept();
}

bool Form2::IsRefused(const std::string& name) {
  if (name.empty()) {
    prompts_.Tell(text::FromQt(tr("The template name you typed is invalid. Try typing the template "
                                  "name again.")),
                  PromptIcon::kCritical);
  } else if (text::EqualIgnoringCase(name, kReservedName)) {
    prompts_.Tell(
        text::FromQt(tr("You cannot use the name %1 for a template. Type a different name.")
                         .arg(text::ToQt(name))),
        PromptIcon::kExclamation);
  } else {
    return false;
  }
  return true;
}

bool Form2::MayTake(const std::string& name) {
  const std::optional<std::string> taken = FindTemplate(settings_, name);
  if (!taken) return true;
  const QString question =
      tr("A template named %1 already exists. Do you want to replace the "
         "existing template?");
  const bool replace =
      prompts_.Ask(text::FromQt(question.arg(text::ToQt(name))), PromptIcon::kExclamation);
  if (replace) RewriteExist = TemplateNumber(*taken);
  return replace;
}
