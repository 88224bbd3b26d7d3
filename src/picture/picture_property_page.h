#pragma once

#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <vector>

#include "picture/animated_picture.h"

class QDialogButtonBox;
class QLabel;
class QTabWidget;
struct PropertyField;

/// Edits all properties of a picture, with a sample that follows at once; the picture itself
/// changes by "Apply" and "OK" alone, and only in what was edited.
class PicturePropertyPage : public QWidget {
  Q_OBJECT

 public:
  /// Gives the picture a property's new value in the place of QObject::setProperty, as for an
  /// editor with an undo of its own.
  using Setter = std::function<void(const char* property, const QVariant& value)>;

  /// When `picture` goes, the page has nothing to change any more: all but "Cancel" is off.
  explicit PicturePropertyPage(AnimatedPicture* picture, QWidget* parent = nullptr);
  ~PicturePropertyPage() override;

  void setSetter(Setter setter) { setter_ = std::move(setter); }
  /// The picture that shows what is edited.
  AnimatedPicture* sample() const { return sample_; }

  /// Opens the page as a dialog of `parent` and waits for its end, which also comes when `picture`
  /// or `parent` goes. Whether it ended by "OK".
  static bool edit(AnimatedPicture* picture, QWidget* parent, Setter setter = {});

 public slots:
  void apply();
  /// Shows the values that the picture had when the page was made; "Apply" then gives them back.
  void restore();

 signals:
  /// "OK", after what was edited was applied; "Cancel".
  void accepted();
  void rejected();

 private:
  struct Row;

  void AddRow(int tab, const char* property, const QString& label, PropertyField field);
  void AddRows();
  void AddDisplayRows();
  std::function<void()> NextChanged();  ///< for the row that is added next
  void AddSample();
  void AddButtons();
  void Changed(size_t row);
  void ShowOnSample(const Row& row);
  void Give(AnimatedPicture& picture, const Row& row);
  void ShowFacts();
  void ShowState();

  QPointer<AnimatedPicture> picture_;
  QByteArray data_;  ///< that the picture was made of, if not of a file
  Setter setter_;
  std::vector<Row> rows_;
  bool filling_ = true;  ///< the fields take the picture's values
  QTabWidget* tabs_;
  AnimatedPicture* sample_;
  QLabel* facts_;
  QDialogButtonBox* buttons_;
};
