#include "window/folder_pages.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <utility>

#include "common/path_text.h"
#include "filelist/mask_field.h"
#include "look/card.h"
#include "look/fitted_button.h"
#include "look/handlers.h"
#include "look/look.h"
#include "look/option_controls.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"
#include "platform/text.h"
#include "trace/err_trace.h"
#include "window/folder_dialog.h"
#include "window/folder_field.h"
#include "window/folder_sign.h"

namespace {

constexpr std::tuple kSaved{
    OptionControl{&SaveOptions::chSaveSourceFolderOptions, &FolderPages::chSaveSourceFolderOptions},
    OptionControl{&SaveOptions::chSaveOutputFolderOptions, &FolderPages::chSaveOutputFolderOptions},
    OptionControl{&SaveOptions::chSaveFileListOptions, &FolderPages::chSaveFileListOptions},
};
constexpr std::tuple kSource{
    OptionControl{&SourceOptions::fdSourceFolder, &FolderPages::fdSourceFolder},
    OptionControl{&SourceOptions::fdIncludeMask, &FolderPages::fdIncludeMask},
    OptionControl{&SourceOptions::fdExcludeMask, &FolderPages::fdExcludeMask},
    OptionControl{&SourceOptions::chSubfolders, &FolderPages::chSubfolders},
};
constexpr std::tuple kOutput{
    OptionControl{&OutputOptions::cmbDestination, &FolderPages::cmbDestination},
    OptionControl{&OutputOptions::fdDestination, &FolderPages::fdDestination},
    OptionControl{&OutputOptions::chDestinationSubfolders, &FolderPages::chDestinationSubfolders},
};

/// What the pages are for, in their order.
constexpr const char* kPages[] = {
    QT_TRANSLATE_NOOP("FolderPages", "Where to look for files, and which to list"),
    QT_TRANSLATE_NOOP("FolderPages", "Where the renamed files go"),
    QT_TRANSLATE_NOOP("FolderPages", "What is remembered, and the program's look"),
};

constexpr int kPageTop = 10;
constexpr int kPageBottom = 7;
constexpr int kPairGap = 13;
constexpr FittedButton::Measures kBrowseWidth{.air = 18, .least = 30};

template <class Field, class... More>
Field* NewField(const char* name, const QString& tells, QWidget* parent, More&... more) {
  auto* field = new Field(parent, more...);
  field->setObjectName(QLatin1String(name));
  Explain(field, tells);
  return field;
}

QCheckBox* NewBox(const char* name, const QString& text, const QString& tells, QWidget* parent) {
  auto* box = new QCheckBox(text, parent);
  box->setObjectName(QLatin1String(name));
  Explain(box, tells);
  return box;
}

QPushButton* NewBrowseButton(const char* name, const QString& tells, QWidget* parent) {
  auto* button = new FittedButton(QObject::tr("&..."), kBrowseWidth, parent);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleName(tells);
  button->setProperty("narrow", true);
  return button;
}

/// A page whose labels stand in one column, so that all fields start on one line.
QGridLayout* NewGrid(QWidget* page) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(measure::kCardLeft, kPageTop, measure::kCardRight, kPageBottom);
  grid->setHorizontalSpacing(measure::kControlGap);
  grid->setVerticalSpacing(measure::kControlGap);
  grid->setColumnMinimumWidth(0, measure::kFolderLabels);
  grid->setColumnStretch(1, 1);
  for (int row = 0; row < 3; ++row) grid->setRowMinimumHeight(row, measure::kCheckHeight);
  grid->setRowStretch(3, 1);
  return grid;
}

}  // namespace

FolderPages::FolderPages(Folders& folders, QWidget* parent, FolderDialog browse)
    : QTabWidget(parent), folders_(folders), browse_(std::move(browse)) {
  setObjectName(QStringLiteral("TabControl2"));
  setAccessibleName(tr("Folders and settings"));
  if (!browse_) {
    browse_ = [this](const std::string& start) { return mMain::BrowseForDisk(window(), start); };
  }
  BuildSourcePage(NewPage(tr("Source folder")));
  BuildOutputPage(NewPage(tr("Output folder")));
  BuildSettingsPage(NewPage(tr("Settings")));
  AddKeys();
  Show(SaveOptions());
  Show(SourceOptions());
  Show(OutputOptions());
  chEnableSkin->setChecked(true);
  cmbDestination_Click();

  new FolderSign(fdSourceFolder, folders_, FolderUse::kRead);
  new FolderSign(fdDestination, folders_, FolderUse::kWrite);
  connect(fdSourceFolder, &QLineEdit::textChanged, this, &FolderPages::sourceFolderChanged);
  OnSignal(Command2, &QPushButton::clicked, "Form1.Command2_Click", [this] { Command2_Click(); });
  OnSignal(bnDestination, &QPushButton::clicked, "Form1.bnDestination_Click",
           [this] { bnDestination_Click(); });
  OnSignal(cmbDestination, &QComboBox::currentIndexChanged, "Form1.cmbDestination_Click",
           [this] { cmbDestination_Click(); });
  for (FolderField* field : {fdSourceFolder, fdDestination}) {
    connect(field, &QLineEdit::editingFinished, this, &FolderPages::CommitFocusedField);
  }
  for (QLineEdit* field : {static_cast<QLineEdit*>(fdSourceFolder), fdIncludeMask, fdExcludeMask}) {
    connect(field, &QLineEdit::returnPressed, this, &FolderPages::listAsked);
  }
  connect(chEnableSkin, &QCheckBox::toggled, this, &FolderPages::skinToggled);
  connect(cmbDestination, &QComboBox::currentIndexChanged, this, &FolderPages::outputChanged);
  connect(chDestinationSubfolders, &QCheckBox::toggled, this, &FolderPages::outputChanged);
  connect(fdDestination, &QLineEdit::editingFinished, this, &FolderPages::outputChanged);
  connect(fdDestination, &QLineEdit::textChanged, this, [this] {
    if (!fdDestination->hasFocus()) emit outputChanged();
  });
}

void FolderPages::showEvent(QShowEvent* event) {
  PolishAll(this);
  QTabWidget::showEvent(event);
}

/// Without its controls, which would all move along.
QWidget* FolderPages::NewPage(const QString& title) {
  auto* page = new QWidget;
  addTab(page, title);
  return page;
}

void FolderPages::BuildSourcePage(QWidget* page) {
  fdSourceFolder = NewField<FolderField>(
      "fdSourceFolder",
      tr("The folder with the files to rename; you can also drop it on the window"), page,
      folders_);
  Command2 = NewBrowseButton("Command2", tr("Choose the source folder"), page);
  fdIncludeMask = NewField<QLineEdit>(
      "fdIncludeMask",
      tr("List only matching files; separate masks with blanks, as in *.jpg *.png"), page);
  fdExcludeMask = NewField<QLineEdit>(
      "fdExcludeMask",
      tr("Leave out matching files; separate masks with blanks, as in *.tmp *.bak"), page);
  chSubfolders = NewBox("chSubfolders", tr("Include su&bfolders"),
                        tr("List the files in its folders too, at any depth"), page);
  for (QLineEdit* mask : {fdIncludeMask, fdExcludeMask}) {
    mask->setPlaceholderText(tr("*.jpg *.png"));
    WatchMasks(mask);
  }
  Explain(Command2, WithKeys(tr("Choose a folder"), Keys::kChooseFolder));

  auto* masks = new QHBoxLayout;
  masks->setSpacing(measure::kControlGap);
  masks->addWidget(fdIncludeMask, 3);
  masks->addSpacing(kPairGap - measure::kControlGap);
  masks->addWidget(NewLabel(tr("E&xclude mask:"), fdExcludeMask, page));
  masks->addWidget(fdExcludeMask, 2);
  QGridLayout* grid = NewGrid(page);
  grid->addWidget(NewLabel(tr("&Folder:"), fdSourceFolder, page), 0, 0);
  grid->addWidget(fdSourceFolder, 0, 1);
  grid->addWidget(Command2, 0, 2);
  grid->addWidget(NewLabel(tr("&Include mask:"), fdIncludeMask, page), 1, 0);
  grid->addLayout(masks, 1, 1, 1, 2);
  grid->addWidget(chSubfolders, 2, 1, 1, 2, Qt::AlignLeft);
}

std::array<QWidget*, 4> FolderPages::OutputControls() const {
  return {destination_label_, fdDestination, bnDestination, chDestinationSubfolders};
}

void FolderPages::BuildOutputPage(QWidget* page) {
  cmbDestination = new QComboBox(page);
  cmbDestination->setObjectName(QStringLiteral("cmbDestination"));
  Explain(cmbDestination, tr("Rename the files where they are, or copy or move them to a folder"));
  for (const OutputModeRow& mode : kOutputModes) cmbDestination->addItem(tr(mode.caption));
  fdDestination = NewField<FolderField>(
      "fdDestination", tr("The folder to copy or move to; it is created if it doesn't exist"), page,
      folders_);
  bnDestination = NewBrowseButton("bnDestination", tr("Choose the output folder"), page);
  Explain(bnDestination, WithKeys(tr("Choose a folder"), Keys::kChooseFolder));
  chDestinationSubfolders = NewBox("chDestinationSubfolders", tr("Create su&bfolders"),
                                   tr("Recreate the subfolders of the source folder there"), page);
  destination_label_ = NewLabel(tr("&Folder:"), fdDestination, page);
  for (QWidget* control : OutputControls()) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
  }
  QLabel* output_label = NewLabel(tr("&Output:"), cmbDestination, page);
  output_label->setObjectName(QStringLiteral("lbOutput"));
  QGridLayout* grid = NewGrid(page);
  grid->addWidget(output_label, 0, 0);
  grid->addWidget(cmbDestination, 0, 1, Qt::AlignLeft);
  grid->addWidget(destination_label_, 1, 0);
  grid->addWidget(fdDestination, 1, 1);
  grid->addWidget(bnDestination, 1, 2);
  grid->addWidget(chDestinationSubfolders, 2, 1, 1, 2, Qt::AlignLeft);
}

void FolderPages::BuildSettingsPage(QWidget* page) {
  chSaveSourceFolderOptions = NewBox("chSaveSourceFolderOptions", tr("Save source &folder options"),
                                     tr("Start with the same folder and masks next time"), page);
  chSaveOutputFolderOptions = NewBox("chSaveOutputFolderOptions", tr("Save &output folder options"),
                                     tr("Start with the same output and folder next time"), page);
  chSaveFileListOptions = NewBox("chSaveFileListOptions", tr("Save f&ile list options"),
                                 tr("Start with the same columns and groups next time"), page);
  chEnableSkin = NewBox("chEnableSkin", tr("Ena&ble skin"),
                        tr("The program's own look; without it, the look of your desktop"), page);
  QGridLayout* grid = NewGrid(page);
  // Boxes only: as much air as between fields.
  grid->setVerticalSpacing(measure::kBlockGap);
  grid->setContentsMargins(measure::kCardLeft, kPageTop + 1, measure::kCardRight, 0);
  grid->addWidget(chSaveSourceFolderOptions, 0, 0, 1, 2, Qt::AlignLeft);
  grid->addWidget(chEnableSkin, 0, 2);
  grid->addWidget(chSaveOutputFolderOptions, 1, 0, 1, 2, Qt::AlignLeft);
  grid->addWidget(chSaveFileListOptions, 2, 0, 1, 2, Qt::AlignLeft);
}

void FolderPages::AddKeys() {
  for (int page = 0; page < count(); ++page) {
    const Keys keys = Behind(Keys::kSourcePage, page);
    setTabToolTip(page, WithKeys(tr(kPages[page]), keys));
    connect(NewShortcut(keys, this), &QShortcut::activated, this,
            [this, page] { setCurrentIndex(page); });
  }
  const auto choose = [this] { (bnDestination->isVisible() ? bnDestination : Command2)->click(); };
  connect(NewShortcut(Keys::kChooseFolder, this), &QShortcut::activated, this, choose);
}

void FolderPages::Command2_Click() {
  CommitFocusedField();
  const std::string folder = mScanCD::NormalizePath(browse_(Source().fdSourceFolder));
  if (!folder.empty()) TakeSourceFolder(folder);
}

void FolderPages::bnDestination_Click() {
  CommitFocusedField();
  const std::string folder = mScanCD::NormalizePath(browse_(Output().fdDestination));
  if (!folder.empty()) TakeOutputFolder(folder);
}

void FolderPages::cmbDestination_Click() {
  const bool shown = AsksForFolder(cmbDestination->currentIndex());
  for (QWidget* control : OutputControls()) control->setVisible(shown);
}

void FolderPages::CommitFocusedField() {
  ErrTrace::top("FolderPages.CommitFocusedField", [this] {
    for (FolderField* field : {fdSourceFolder, fdDestination}) field->TakeHome();
    const std::string typed = Output().fdDestination;
    if (!mMain::IsAbsolutePath(typed)) return;
    const QString closed = text::ToQt(mScanCD::NormalizePath(typed));
    if (closed != fdDestination->text()) fdDestination->setText(closed);
  });
}

SaveOptions FolderPages::Saved() const {
  return OptionsIn<SaveOptions>(*this, kSaved);
}
SourceOptions FolderPages::Source() const {
  return OptionsIn<SourceOptions>(*this, kSource);
}
OutputOptions FolderPages::Output() const {
  return OptionsIn<OutputOptions>(*this, kOutput);
}

void FolderPages::Show(const SaveOptions& options) {
  ShowOptions(options, kSaved, *this);
}
void FolderPages::Show(const SourceOptions& options) {
  ShowOptions(options, kSource, *this);
}
void FolderPages::Show(const OutputOptions& options) {
  ShowOptions(options, kOutput, *this);
}

void FolderPages::SetSourceFolder(const std::string& folder) {
  fdSourceFolder->setText(text::ToQt(folder));
}

void FolderPages::TakeSourceFolder(const std::string& folder) {
  setCurrentWidget(fdSourceFolder->parentWidget());
  SetSourceFolder(folder);
  emit folderChosen();
}

void FolderPages::TakeOutputFolder(const std::string& folder) {
  fdDestination->setText(text::ToQt(folder));
  emit outputChanged();
}

void FolderPages::CloseSourceFolder() {
  CommitFocusedField();
  SetSourceFolder(mScanCD::NormalizePath(text::Trim(Source().fdSourceFolder)));
}
