#include "picture/picture_property_page.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstring>

#include "picture/property_fields.h"

namespace {

constexpr int kSampleSize = 200;
constexpr int kFieldsWidth = 400;
constexpr const char* kLimits[] = {"maxBytes", "maxPixels", "maxFrames", "cached", "maxCacheBytes"};

enum Tab { kPicture, kPlaying, kDisplay, kLimit };

bool IsLimit(const char* property) {
  return std::any_of(std::begin(kLimits), std::end(kLimits),
                     [&](const char* limit) { return std::strcmp(limit, property) == 0; });
}

bool IsFrame(const char* property) {
  return std::strcmp(property, "frame") == 0;
}

bool IsSource(const char* property) {
  return std::strcmp(property, "source") == 0;
}

}  // namespace

struct PicturePropertyPage::Row {
  const char* property;
  PropertyField field;
  QVariant opened;   ///< the picture's value when the page was made
  QVariant applied;  ///< the one that it has now

  bool Edited() const { return field.value() != applied; }
};

PicturePropertyPage::PicturePropertyPage(AnimatedPicture* picture, QWidget* parent)
    : QWidget(parent),
      picture_(picture),
      data_(picture->data()),
      tabs_(new QTabWidget),
      sample_(new AnimatedPicture),
      facts_(new QLabel),
      buttons_(new QDialogButtonBox) {
  setWindowTitle(tr("Picture properties"));
  auto* lines = new QVBoxLayout(this);
  auto* sides = new QHBoxLayout;
  for (const QString& title : {tr("Picture"), tr("Playing"), tr("Display"), tr("Limits")}) {
    auto* tab = new QWidget;
    new QFormLayout(tab);
    tabs_->addTab(tab, title);
  }
  tabs_->setMinimumWidth(kFieldsWidth);
  sides->addWidget(tabs_, 1);
  lines->addLayout(sides, 1);
  AddSample();
  AddRows();
  AddButtons();
  lines->addWidget(buttons_);
  for (Row& row : rows_) {
    row.field.show(picture->property(row.property));
    row.opened = row.applied = row.field.value();
    ShowOnSample(row);
  }
  filling_ = false;
  ShowFacts();
  ShowState();
  connect(picture, &QObject::destroyed, this, [this] {
    picture_.clear();  // a widget says so before its pointers know
    ShowState();
  });
}

PicturePropertyPage::~PicturePropertyPage() = default;

void PicturePropertyPage::AddRow(int tab, const char* property, const QString& label,
                                 PropertyField field) {
  field.control->setObjectName(QLatin1String(property));
  auto* form = static_cast<QFormLayout*>(tabs_->widget(tab)->layout());
  label.isEmpty() ? form->addRow(field.control) : form->addRow(label, field.control);
  if (QWidget* named = field.control->focusProxy()) {
    static_cast<QLabel*>(form->labelForField(field.control))->setBuddy(named);
    if (auto* line = qobject_cast<QLineEdit*>(named)) {
      connect(line, &QLineEdit::textEdited, this, &PicturePropertyPage::ShowState);
    }
  }
  rows_.push_back({property, std::move(field), {}, {}});
}

std::function<void()> PicturePropertyPage::NextChanged() {
  return [this, row = rows_.size()] { Changed(row); };
}

// In the order in which they are applied: what a picture is read by before the picture, then where
// it stands.
void PicturePropertyPage::AddRows() {
  using namespace property_fields;
  const auto changed = [this] { return NextChanged(); };
  const auto number = [&](const AnimatedPicture::Bounds& bounds, const QString& suffix = {}) {
    return Number(bounds.least, bounds.most, suffix, changed());
  };
  AddRow(kLimit, "maxBytes", tr("&Bytes:"), number(AnimatedPicture::kMaxBytes));
  AddRow(kLimit, "maxPixels", tr("Pi&xels of a frame:"), number(AnimatedPicture::kMaxPixels));
  AddRow(kLimit, "maxFrames", tr("F&rames:"), number(AnimatedPicture::kMaxFrames));
  AddRow(kLimit, "cached", {}, Check(tr("&Keep decoded frames"), changed()));
  AddRow(kLimit, "maxCacheBytes", tr("By&tes of kept frames:"),
         number(AnimatedPicture::kMaxCacheBytes));
  AddRow(kPlaying, "autoplay", {}, Check(tr("Play &when the picture is set"), changed()));
  AddRow(kPlaying, "interactive", {}, Check(tr("Click and Space &play and pause"), changed()));
  AddRow(kPlaying, "motion", tr("&Motion:"),
         Choice({tr("As the desktop wants it"), tr("Always"), tr("Only on request")}, changed()));
  AddRow(kPlaying, "speed", tr("Sp&eed:"), number(AnimatedPicture::kSpeed, tr(" %")));
  AddRow(
      kPlaying, "loops", tr("Pl&ays:"),
      Choice({tr("As the file says"), tr("Once"), tr("Without end"), tr("As often as said below")},
             changed()));
  AddRow(kPlaying, "loopCount", tr("&Times:"), number(AnimatedPicture::kLoopCount));
  AddDisplayRows();
  AddRow(kPicture, "source", tr("&File or resource:"), File(changed()));
  AddRow(kPicture, "frame", tr("Fra&me:"),
         Number(0, AnimatedPicture::kMaxFrames.most, {}, changed()));
  AddRow(kPicture, "accessibleDescription", tr("&Description:"), Line(changed()));
}

void PicturePropertyPage::AddDisplayRows() {
  using namespace property_fields;
  const auto changed = [this] { return NextChanged(); };
  AddRow(kDisplay, "scaleMode", tr("&Size:"),
         Choice({tr("Actual size"), tr("Fit"), tr("Fill"), tr("Stretch")}, changed()));
  AddRow(kDisplay, "alignment", tr("A&lignment:"), Alignment(changed()));
  AddRow(kDisplay, "background", tr("Back&ground:"), Colour(changed()));
  AddRow(
      kDisplay, "frameShape", tr("Bo&rder:"),
      Choice({tr("None"), tr("Box"), tr("Panel"), tr("Raised or sunken panel"),
              tr("As the style has it")},
             changed(),
             {QFrame::NoFrame, QFrame::Box, QFrame::Panel, QFrame::WinPanel, QFrame::StyledPanel}));
  AddRow(kDisplay, "frameShadow", tr("S&hadow:"),
         Choice({tr("Plain"), tr("Raised"), tr("Sunken")}, changed(),
                {QFrame::Plain, QFrame::Raised, QFrame::Sunken}));
  AddRow(kDisplay, "lineWidth", tr("Line &width:"),
         Number(AnimatedPicture::kLineWidth.least, AnimatedPicture::kLineWidth.most, tr(" px"),
                changed()));
}

void PicturePropertyPage::AddSample() {
  auto* frame = new QFrame;
  frame->setFrameShape(QFrame::StyledPanel);
  (new QVBoxLayout(frame))->addWidget(sample_);
  sample_->setObjectName(QStringLiteral("sample"));
  sample_->setAccessibleName(tr("Sample"));
  sample_->setMinimumSize(kSampleSize, kSampleSize);

  auto* keys = new QHBoxLayout;
  const auto add_key = [&](const char* name, const QString& text, void (AnimatedPicture::*act)()) {
    auto* key = new QToolButton;
    key->setObjectName(QLatin1String(name));
    key->setText(text);
    key->setFocusPolicy(Qt::StrongFocus);
    connect(key, &QToolButton::clicked, sample_, act);
    keys->addWidget(key);
  };
  add_key("play", tr("Play"), &AnimatedPicture::play);
  add_key("pause", tr("Pause"), &AnimatedPicture::pause);
  add_key("stop", tr("Stop"), &AnimatedPicture::stop);
  add_key("step", tr("Step"), &AnimatedPicture::step);
  keys->addStretch();

  facts_->setObjectName(QStringLiteral("facts"));
  facts_->setTextFormat(Qt::PlainText);
  facts_->setWordWrap(true);
  facts_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* lines = new QVBoxLayout;
  lines->addWidget(frame, 1);
  lines->addLayout(keys);
  lines->addWidget(facts_);
  static_cast<QHBoxLayout*>(layout()->itemAt(0)->layout())->addLayout(lines);
  connect(sample_, &AnimatedPicture::sourceChanged, this, &PicturePropertyPage::ShowFacts);
  connect(sample_, &AnimatedPicture::failed, this, &PicturePropertyPage::ShowFacts);
  connect(sample_, &AnimatedPicture::finished, this, &PicturePropertyPage::ShowFacts);
}

void PicturePropertyPage::AddButtons() {
  buttons_->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                               QDialogButtonBox::Apply | QDialogButtonBox::Reset);
  buttons_->button(QDialogButtonBox::Reset)->setText(tr("Rest&ore"));
  connect(buttons_->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
          &PicturePropertyPage::apply);
  connect(buttons_->button(QDialogButtonBox::Reset), &QPushButton::clicked, this,
          &PicturePropertyPage::restore);
  connect(buttons_, &QDialogButtonBox::accepted, this, [this] {
    apply();
    emit accepted();
  });
  connect(buttons_, &QDialogButtonBox::rejected, this, &PicturePropertyPage::rejected);
}

void PicturePropertyPage::Changed(size_t row) {
  if (filling_) return;
  ShowOnSample(rows_[row]);
  ShowState();
}

void PicturePropertyPage::ShowOnSample(const Row& row) {
  if (IsFrame(row.property)) {
    if (filling_) return;  // else what plays would stand still at once
    sample_->pause();
  }
  Give(*sample_, row);
  if (IsLimit(row.property) && !filling_) sample_->reload();
}

void PicturePropertyPage::Give(AnimatedPicture& picture, const Row& row) {
  const QVariant value = row.field.value();
  if (IsSource(row.property) && value.toString().isEmpty()) {
    picture.setData(data_);  // without a file it is again the picture that was given as bytes
  } else {
    picture.setProperty(row.property, value);
  }
}

void PicturePropertyPage::ShowFacts() {
  const QLocale locale;
  const QSize size = sample_->pictureSize();
  QStringList lines;
  if (!sample_->failure().isEmpty()) {
    lines << sample_->failure();
  } else if (!size.isValid()) {
    lines << tr("No picture.");
  } else {
    const QString unknown = tr("not told by the file");
    const int frames = sample_->frameCount();
    const double seconds = static_cast<double>(sample_->length()) / 1000;
    lines << tr("Frames: %1").arg(frames > 0 ? locale.toString(frames) : unknown)
          << tr("Size: %1 × %2 pixels, %3")
                 .arg(locale.toString(size.width()), locale.toString(size.height()),
                      locale.formattedDataSize(sample_->byteCount()));
    if (sample_->animated()) {
      lines << tr("Length: %1")
                   .arg(seconds > 0 ? tr("%1 s").arg(locale.toString(seconds, 'f', 2)) : unknown);
    }
  }
  facts_->setText(lines.join(QLatin1Char('\n')));
  const int frames = sample_->frameCount();
  findChild<QSpinBox*>(QStringLiteral("frame"))
      ->setMaximum(frames > 0 ? frames - 1 : AnimatedPicture::kMaxFrames.most);
}

void PicturePropertyPage::ShowState() {
  const auto any = [&](auto differs) { return std::any_of(rows_.begin(), rows_.end(), differs); };
  const bool on = picture_ != nullptr;
  tabs_->setEnabled(on);
  buttons_->button(QDialogButtonBox::Ok)->setEnabled(on);
  buttons_->button(QDialogButtonBox::Apply)->setEnabled(on && any([](const Row& row) {
                                                          return row.Edited();
                                                        }));
  buttons_->button(QDialogButtonBox::Reset)->setEnabled(on && any([](const Row& row) {
                                                          return row.field.value() != row.opened;
                                                        }));
}

void PicturePropertyPage::apply() {
  bool limits = false;
  bool source = false;
  for (Row& row : rows_) {
    if (picture_ == nullptr || !row.Edited()) continue;
    limits = limits || IsLimit(row.property);
    source = source || IsSource(row.property);
    row.applied = row.field.value();
    if (IsFrame(row.property)) picture_->pause();
    if (picture_ == nullptr) break;
    setter_ ? setter_(row.property, row.applied) : Give(*picture_, row);
  }
  if (limits && !source && picture_ != nullptr) picture_->reload();
  ShowState();
}

void PicturePropertyPage::restore() {
  for (const Row& row : rows_) row.field.show(row.opened);
}

bool PicturePropertyPage::edit(AnimatedPicture* picture, QWidget* parent, Setter setter) {
  const QPointer<QDialog> dialog(new QDialog(parent));  // it goes with its parent
  auto* page = new PicturePropertyPage(picture, dialog);
  page->setSetter(std::move(setter));
  dialog->setWindowTitle(page->windowTitle());
  auto* lines = new QVBoxLayout(dialog);
  lines->setContentsMargins({});
  lines->addWidget(page);
  connect(page, &PicturePropertyPage::accepted, dialog, &QDialog::accept);
  connect(page, &PicturePropertyPage::rejected, dialog, &QDialog::reject);
  connect(picture, &QObject::destroyed, dialog, &QDialog::reject);
  const bool accepted = dialog->exec() == QDialog::Accepted;
  delete dialog;
  return accepted;
}
