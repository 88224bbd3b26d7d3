#include "window/folder_offers.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <algorithm>
#include <chrono>
#include <string_view>
#include <thread>
#include <utility>

#include "common/natural_order.h"
#include "common/path_text.h"
#include "core/text_sort.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"
#include "platform/services.h"
#include "platform/subfolders.h"
#include "platform/text.h"

namespace {

constexpr int kLookEveryMs = 20;
constexpr int kMostRows = 8;  // more are scrolled
constexpr int kMostOffered = 500;
constexpr std::size_t kMostNames = 20000;
constexpr int kWholePath = Qt::UserRole;

std::vector<std::string> InNaturalOrder(std::vector<std::string> names) {
  const auto name = [&](std::size_t number) { return std::string_view(names[number]); };
  std::vector<std::string> sorted;
  for (const auto number : SortedByText(names.size(), name, AppendNaturalKey)) {
    sorted.push_back(std::move(names[number]));
  }
  return sorted;
}

}  // namespace

FolderOffers::FolderOffers(QLineEdit* field, Folders& folders)
    : QListView(field->window()),
      field_(field),
      folders_(folders),
      model_(new QStandardItemModel(this)) {
  hide();
  setObjectName(field->objectName() + QStringLiteral("Offers"));
  setProperty("offers", true);
  setAccessibleName(tr("Folders"));
  setModel(model_);
  setFocusPolicy(Qt::NoFocus);
  setEditTriggers(NoEditTriggers);
  setUniformItemSizes(true);
  look_.setInterval(kLookEveryMs);
  OnSignal(&look_, &QTimer::timeout, this, "FolderOffers.LookForAnswer",
           [this] { LookForAnswer(); });
  OnSignal(this, &QListView::clicked, this, "FolderOffers.TakeSelected",
           [this] { TakeSelected(); });
}

std::string FolderOffers::TypedFolder() const {
  const std::string path = mMain::WithHome(text::FromQt(field_->text()), folders_.Home());
  const std::string folder = path.substr(0, path.rfind(kNative.separator) + 1);
  return mMain::IsAbsolutePath(folder) ? folder : "";
}

void FolderOffers::Follow() {
  const std::string folder = TypedFolder();
  if (folder.empty()) {
    Forget();
  } else if (folder != folder_) {
    Ask(folder);
  } else if (Settled()) {
    Offer();
  }
}

void FolderOffers::Forget() {
  hide();
  look_.stop();
  answer_ = {};
  folder_.clear();
}

/// The thread belongs to nobody: on a disk that doesn't answer it may outlive the window.
void FolderOffers::Ask(const std::string& folder) {
  hide();
  std::packaged_task<std::vector<std::string>()> task(
      [folder] { return InNaturalOrder(SubfoldersOf(folder, kMostNames)); });
  answer_ = task.get_future();
  folder_ = folder;
  std::thread(std::move(task)).detach();
  look_.start();
}

void FolderOffers::LookForAnswer() {
  if (answer_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
  look_.stop();
  names_ = answer_.get();
  // Meanwhile another path may have come into the field without a key.
  if (TypedFolder() == folder_) Offer();
}

void FolderOffers::Offer() {
  const QString typed = field_->text();
  const auto end = typed.lastIndexOf(QLatin1Char(kNative.separator)) + 1;
  const QString begun = typed.mid(end);
  model_->clear();
  for (const std::string& name : names_) {
    const QString closed = text::ToQt(mScanCD::NormalizePath(name));
    if (!closed.startsWith(begun, Qt::CaseInsensitive)) continue;
    if (name.front() == '.' && !begun.startsWith(u'.')) continue;
    auto* row = new QStandardItem(text::Shown(mScanCD::NormalizePath(name)));
    row->setData(typed.left(end) + closed, kWholePath);
    model_->appendRow(row);
    if (model_->rowCount() == kMostOffered) break;
  }
  const bool any = end > 0 && model_->rowCount() > 0 && field_->hasFocus();
  if (any) Place();
  setVisible(any);
}

void FolderOffers::Place() {
  const int rows = std::min(model_->rowCount(), kMostRows);
  const QPoint below = field_->mapTo(window(), QPoint(0, field_->height()));
  setGeometry(below.x(), below.y(), field_->width(),
              rows * sizeHintForRow(0) + height() - viewport()->height());
  raise();
}

bool FolderOffers::Takes(int key) {
  if (isHidden()) return false;
  if (key == Qt::Key_Escape) return hide(), true;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return TakeSelected();
  if (key == Qt::Key_Down) return Step(1), true;
  if (key == Qt::Key_Up) return Step(-1), true;
  if (key == Qt::Key_PageDown) return Step(kMostRows), true;
  if (key == Qt::Key_PageUp) return Step(-kMostRows), true;
  return false;
}

void FolderOffers::Step(int by) {
  const int from = currentIndex().isValid() ? currentIndex().row() : by > 0 ? -1 : 0;
  setCurrentIndex(model_->index(std::clamp(from + by, 0, model_->rowCount() - 1), 0));
}

bool FolderOffers::TakeSelected() {
  const QModelIndex selected = currentIndex();
  if (isHidden() || !selected.isValid()) return false;
  field_->setText(selected.data(kWholePath).toString());
  Follow();
  return true;
}
