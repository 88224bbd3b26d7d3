#include "picture/property_fields.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>
#include <iterator>

namespace property_fields {

namespace {

constexpr const char* kAbsolute = "absolute";

QString Tr(const char* text) {
  return QCoreApplication::translate("PicturePropertyPage", text);
}

QWidget* SideBySide(QWidget* wide, QWidget* narrow) {
  auto* both = new QWidget;
  auto* row = new QHBoxLayout(both);
  row->setContentsMargins({});
  row->addWidget(wide, 1);
  row->addWidget(narrow);
  both->setFocusProxy(wide);
  return both;
}

QComboBox* NewList(const QStringList& texts, const Changed& changed) {
  auto* list = new QComboBox;
  list->addItems(texts);
  QObject::connect(list, &QComboBox::currentIndexChanged, list, changed);
  return list;
}

QString PictureFilter() {
  QStringList masks;
  for (const QByteArray& format : QImageReader::supportedImageFormats()) {
    masks << QStringLiteral("*.") + QString::fromLatin1(format);
  }
  return Tr("Pictures") + QStringLiteral(" (%1)").arg(masks.join(QLatin1Char(' ')));
}

void ShowColour(QPushButton* button, const QColor& colour) {
  button->setProperty("colour", colour);
  button->setText(colour.isValid() ? colour.name() : Tr("None..."));
  QPixmap patch(16, 16);
  patch.fill(colour);
  button->setIcon(colour.isValid() ? QIcon(patch) : QIcon());
}

}  // namespace

PropertyField Check(const QString& text, const Changed& changed) {
  auto* box = new QCheckBox(text);
  QObject::connect(box, &QCheckBox::toggled, box, changed);
  return {box, [box] { return box->isChecked(); },
          [box](const QVariant& value) { box->setChecked(value.toBool()); }};
}

PropertyField Number(int least, int most, const QString& suffix, const Changed& changed) {
  auto* box = new QSpinBox;
  box->setRange(least, most);
  box->setSuffix(suffix);
  box->setGroupSeparatorShown(true);
  box->setAccelerated(true);
  QObject::connect(box, &QSpinBox::valueChanged, box, changed);
  return {box, [box] { return box->value(); },
          [box](const QVariant& value) { box->setValue(value.toInt()); }};
}

PropertyField Choice(const QStringList& texts, const Changed& changed, const QList<int>& values) {
  auto* list = NewList(texts, changed);
  for (int at = 0; at < texts.size(); ++at) list->setItemData(at, values.value(at, at));
  return {list, [list] { return list->currentData(); },
          [list](const QVariant& value) { list->setCurrentIndex(list->findData(value.toInt())); }};
}

PropertyField Line(const Changed& changed) {
  auto* line = new QLineEdit;
  QObject::connect(line, &QLineEdit::textChanged, line, changed);
  return {line, [line] { return line->text(); },
          [line](const QVariant& value) { line->setText(value.toString()); }};
}

// Typed text is taken when it is finished, so that half a path is not a failure.
PropertyField File(const Changed& changed) {
  auto* line = new QLineEdit;
  auto* choose = new QPushButton(Tr("Choose..."));
  QObject::connect(line, &QLineEdit::editingFinished, line, changed);
  QObject::connect(choose, &QPushButton::clicked, line, [line, changed] {
    const QString path = QFileDialog::getOpenFileName(
        line->window(), Tr("Choose a picture"), QFileInfo(line->text()).path(), PictureFilter());
    if (path.isEmpty()) return;
    line->setText(path);
    changed();
  });
  return {SideBySide(line, choose), [line] { return line->text(); },
          [line, changed](const QVariant& value) {
            line->setText(value.toString());
            changed();
          }};
}

PropertyField Colour(const Changed& changed) {
  auto* choose = new QPushButton;
  auto* none = new QPushButton(Tr("Clear"));
  QObject::connect(choose, &QPushButton::clicked, choose, [choose, changed] {
    const QColor colour =
        QColorDialog::getColor(choose->property("colour").value<QColor>(), choose->window(),
                               Tr("Background"), QColorDialog::ShowAlphaChannel);
    if (!colour.isValid()) return;
    ShowColour(choose, colour);
    changed();
  });
  QObject::connect(none, &QPushButton::clicked, choose, [choose, changed] {
    ShowColour(choose, {});
    changed();
  });
  return {SideBySide(choose, none), [choose] { return choose->property("colour"); },
          [choose, changed](const QVariant& value) {
            ShowColour(choose, value.value<QColor>());
            changed();
          }};
}

PropertyField Alignment(const Changed& changed) {
  static constexpr Qt::Alignment kAcross[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  static constexpr Qt::Alignment kDown[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
  auto* across = NewList({Tr("Left"), Tr("Centre"), Tr("Right")}, changed);
  auto* down = NewList({Tr("Top"), Tr("Middle"), Tr("Bottom")}, changed);
  across->setAccessibleName(Tr("Across"));
  down->setAccessibleName(Tr("Down"));
  auto both = SideBySide(across, down);
  return {both,
          [=] {
            return QVariant::fromValue(kAcross[across->currentIndex()] |
                                       kDown[down->currentIndex()] |
                                       Qt::Alignment(both->property(kAbsolute).toInt()));
          },
          [=](const QVariant& value) {
            const auto alignment = value.value<Qt::Alignment>();
            both->setProperty(kAbsolute, static_cast<int>(alignment & Qt::AlignAbsolute));
            const auto show = [&](QComboBox* list, const Qt::Alignment(&all)[3]) {
              const auto* found = std::find_if(std::begin(all), std::end(all),
                                               [&](auto one) { return (alignment & one) != 0; });
              list->setCurrentIndex(found != std::end(all) ? static_cast<int>(found - all) : 0);
            };
            show(across, kAcross);
            show(down, kDown);
            changed();
          }};
}

}  // namespace property_fields
