#include "filelist/empty_text.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

#include "look/look.h"

namespace {

constexpr int kPictureSize = 48;

/// Shows its picture as it is, also while the list is off: Qt's grey is no colour of the look.
class PictureLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    style()->drawItemPixmap(&painter, contentsRect(), Qt::AlignCenter, pixmap());
  }
};

QLabel* NewLabel(QWidget* parent, const char* name, const char* look) {
  auto* label = new QLabel(parent);
  label->setObjectName(QString::fromLatin1(name));
  label->setProperty(look, true);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  return label;
}

}  // namespace

EmptyText::EmptyText(QAbstractItemView& view)
    : QWidget(view.viewport()),
      view_(view),
      picture_(new PictureLabel(this)),
      title_(NewLabel(this, "lbEmptyTitle", "strong")),
      note_(NewLabel(this, "lbEmptyNote", "muted")),
      room_(new QWidget(this)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  picture_->setObjectName(QStringLiteral("lbEmptyPicture"));
  LayOut();
  MakePicture();
  connect(view.model(), &QAbstractItemModel::modelReset, this, &EmptyText::ShowOrHide);
  ShowOrHide();
}

void EmptyText::LayOut() {
  auto* layout = new QVBoxLayout(this);
  layout->addStretch(2);
  layout->addWidget(picture_);
  layout->addWidget(title_);
  layout->addWidget(note_);
  layout->addWidget(room_, 0, Qt::AlignCenter);
  layout->addStretch(3);
}

void EmptyText::MakePicture() {
  picture_->setPixmap(
      Look::Current().Picture(Drawing::kFolder, Role::kEdge, kPictureSize, devicePixelRatioF()));
}

void EmptyText::SetTexts(const QString& title, const QString& note) {
  title_->setText(title);
  note_->setText(note);
  ShowOrHide();
}

void EmptyText::SetLink(QWidget* link) {
  if (link_ != nullptr) link_->hide();
  link_ = link;
  ShowOrHide();
}

void EmptyText::Place() {
  setGeometry(view_.viewport()->rect());
  PlaceLink();
}

void EmptyText::ShowOrHide() {
  const bool shown = view_.model()->rowCount() == 0 && !title_->text().isEmpty();
  setVisible(shown);
  Describe(shown);
  PlaceLink();
}

void EmptyText::Describe(bool shown) {
  // What others added to the description stays.
  QString words = view_.accessibleDescription();
  if (words.startsWith(described_)) words.remove(0, described_.size());
  described_ = shown ? title_->text() : QString();
  if (shown && !note_->text().isEmpty()) described_ += QStringLiteral(". ") + note_->text();
  view_.setAccessibleDescription(described_ + words);
}

void EmptyText::PlaceLink() {
  const bool shown = link_ != nullptr && !isHidden();
  room_->setFixedSize(shown ? link_->sizeHint() : QSize(0, 0));
  if (link_ == nullptr) return;
  layout()->activate();
  link_->setGeometry(QRect(room_->mapTo(view_.parentWidget(), QPoint()), room_->size()));
  link_->setVisible(shown);
  link_->raise();
}
