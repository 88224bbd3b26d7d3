#include "filelist/system_folder_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "filelist/system_folder.h"
#include "look/card.h"
#include "look/handlers.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kTextWidth = 460;
constexpr int kTextSigns = 50;  ///< that much with a large font
constexpr int kIconSize = 40;
constexpr int kIconGap = 14;
constexpr int kRowGap = 10;
constexpr int kFieldAir = 10;   // what the skin puts around the text
constexpr int kMostLines = 12;  // more are scrolled

QLabel* NewText(const char* name, const QString& text, QWidget* buddy, QWidget* parent) {
  QLabel* label = NewLabel(text, buddy, parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

Form4::Form4(const std::string& folders, SettingsStore& settings, QWidget* parent)
    : DialogFrame("Form4", tr("Warning"), Buttons::kOkAndCancel, parent), settings_(settings) {
  MakeControls();
  LayOut();
  ErrTrace::top(Handler("Form_Load"), [&] { ShowFolders(folders); });
  OnSignal(chAllowSystemRename, &QCheckBox::toggled, Handler("chAllowSystemRename_Click"),
           [this] { chAllowSystemRename_Click(); });
  KeepPlacement(settings_);
}

void Form4::MakeControls() {
  picExclamation = new QLabel(this);
  picExclamation->setObjectName(QStringLiteral("picExclamation"));
  picExclamation->setAccessibleName(tr("Warning"));
  picExclamation->setPixmap(
      Look::Current().Picture(Drawing::kWarning, Role::kWarn, kIconSize, devicePixelRatioF()));
  fdSystemFolders = new QPlainTextEdit(this);
  fdSystemFolders->setObjectName(QStringLiteral("fdSystemFolders"));
  fdSystemFolders->setReadOnly(true);
  fdSystemFolders->setTabChangesFocus(true);
  Label1 = NewText("Label1",
                   tr("The selected source folder contains the following system folders or is "
                      "located inside of them:"),
                   fdSystemFolders, this);
  fdSystemFolders->setAccessibleName(Label1->text());
  Label2 = NewText("Label2",
                   tr("Renaming files in these folders may damage the operating system. In order "
                      "to avoid this, it is strongly recommended to select another source folder."),
                   nullptr, this);
  Label3 = NewText("Label3", tr("Continue working with this source folder anyway?"), nullptr, this);
  chAllowSystemRename = new QCheckBox(tr("&Always show this warning"), this);
  chAllowSystemRename->setObjectName(QStringLiteral("chAllowSystemRename"));
  Explain(chAllowSystemRename, tr("Untick to list such folders without being asked"));
  chAllowSystemRename->setChecked(true);  // else this would not be asked
  bnOK->setText(tr("&Yes"));
  bnCancel->setText(tr("&No!"));
}

void Form4::LayOut() {
  auto* texts = new QVBoxLayout;
  texts->setSpacing(kRowGap);
  for (QWidget* part : std::initializer_list<QWidget*>{Label1, fdSystemFolders, Label2, Label3}) {
    part->setMinimumWidth(std::max(kTextWidth, kTextSigns * fontMetrics().averageCharWidth()));
    texts->addWidget(part);
  }
  texts->addWidget(chAllowSystemRename, 0, Qt::AlignLeft);
  auto* row = new QHBoxLayout;
  row->setSpacing(kIconGap);
  row->addWidget(picExclamation, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  Body()->addLayout(row);
}

void Form4::ShowFolders(const std::string& folders) {
  fdSystemFolders->setPlainText(text::ShownLines(folders).trimmed());
  const int lines = std::clamp(fdSystemFolders->blockCount(), 1, kMostLines);
  const auto margin = static_cast<int>(std::ceil(fdSystemFolders->document()->documentMargin()));
  const int around = 2 * (fdSystemFolders->frameWidth() + margin) + kFieldAir;
  fdSystemFolders->setFixedHeight(lines * fdSystemFolders->fontMetrics().lineSpacing() + around);
}

void Form4::chAllowSystemRename_Click() {
  settings_.SaveSetting(kCheckForSystemFolders.section, kCheckForSystemFolders.key,
                        chAllowSystemRename->isChecked() ? "1" : "0");
  mRegSettings::Flush(settings_);
}
