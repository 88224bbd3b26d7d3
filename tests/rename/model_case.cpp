#include "rename/model_case.h"

#include <algorithm>

#include "platform/text.h"

namespace {

using namespace std::string_literals;

const std::vector<std::string> kPlainNames = {
    "a",  "b",         "c",     "d",   "1",         "a.txt", "b.txt", "a_{1}",    "a_{2}", "b_{1}",
    "a1", "a_{1}.txt", "x.y.z", "-rf", "b_{1}_{1}", "2.txt", "a2",    "\xC3\xA9", "c_{1}"};
const std::vector<std::string> kAwkwardNames = {
    "A",        "A.TXT",     "B",         ".a",         "a.",
    "a b ",     " ",         "_{1}",      "\xC3\x89",   "a_{01}",
    "A_{1}",    "bad\xFF.x", "BAD\xFF.x", "two\nlines", "a*",
    "?",        "[a]",       "*.txt",     "..a",        "\xE2\x80\xAE.txt",
    "e\xCC\x81"};
const std::vector<std::string> kImpossibleNames = {"", "b/c", "../b", "a\0b"s};

std::string Name(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string Folder(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

}  // namespace

ModelCase::ModelCase(std::uint32_t seed, ModelDisk& disk, bool real)
    : disk_(disk), worlds_(disk), draw_(seed), real_(real) {
  ChooseNames();
  MakeTree();
  ListFiles();
  ChooseOptions();
  MakePlan();
}

// The tree and the plan.

void ModelCase::ChooseNames() {
  const bool awkward = draw_.OneIn(2);
  const int count = 3 + draw_.Below(9);
  for (int i = 0; i < count; ++i) {
    names_.push_back(awkward && draw_.OneIn(2) ? draw_.From(kAwkwardNames)
                                               : draw_.From(kPlainNames));
  }
}

void ModelCase::MakeTree() {
  const std::string in = disk_.root + "/in";
  folders_ = {in + "/"};
  if (!draw_.OneIn(3)) folders_.push_back(in + "/sub/");
  if (draw_.OneIn(3)) folders_.push_back(in + "/" + draw_.From(names_) + "/");
  if (draw_.OneIn(3)) folders_.push_back(disk_.out_root + "/out/");
  if (folders_.size() > 1 && draw_.OneIn(4)) folders_.push_back(folders_[1] + "sub/");
  for (const std::string& folder : folders_) {
    const std::string path = folder.substr(0, folder.size() - 1);
    if (!worlds_.model.disk.contains(path)) worlds_.MakeFolder(path);
  }
  const int most = real_ ? 8 : draw_.OneIn(40) ? 40 : 8;
  for (const std::string& folder : folders_) FillFolder(folder, most);
  if (!real_ && draw_.OneIn(1000)) {
    for (int i = 0; i < 650; ++i) worlds_.Write(in + "/f" + std::to_string(i), std::to_string(i));
  }
}

void ModelCase::FillFolder(const std::string& folder, int most) {
  const int count = draw_.Below(most + 1);
  for (int i = 0; i < count; ++i) {
    std::string path = folder + draw_.From(names_);
    if (most > 8 && draw_.OneIn(2)) path += std::to_string(draw_.Below(30));
    if (worlds_.model.disk.contains(path)) continue;
    if (draw_.OneIn(25)) {
      worlds_.MakeFolder(path);
    } else if (draw_.OneIn(25)) {
      worlds_.MakeDanglingLink(path);
    } else {
      worlds_.Write(path, "first at " + path);
    }
  }
}

/// Most files in any order, folder by folder or through each other.
void ModelCase::ListFiles() {
  std::vector<std::string> listed;
  for (const auto& [path, entry] : worlds_.model.disk) {
    const bool in = path.starts_with(disk_.root + "/in/") && entry.kind != PlainEntry::kFolder;
    if (in && !draw_.OneIn(8)) listed.push_back(path);
  }
  for (std::size_t i = listed.size(); i > 1; --i) {
    std::swap(listed[i - 1], listed[static_cast<std::size_t>(draw_.Below(static_cast<int>(i)))]);
  }
  if (!draw_.OneIn(3)) {
    std::stable_sort(listed.begin(), listed.end(), [](const std::string& a, const std::string& b) {
      return Folder(a) < Folder(b);
    });
  }
  for (const std::string& path : listed) {
    worlds_.AddRow(Folder(path), Name(path), !draw_.OneIn(8));
  }
  for (const auto& [path, entry] : worlds_.model.disk) {
    if (!path.starts_with(disk_.root + "/") && !path.starts_with(disk_.out_root + "/")) continue;
    Tell("  " + path + (entry.kind == PlainEntry::kFolder ? "/" : "") +
         (entry.kind == PlainEntry::kLink ? " " + kLinkContent : ""));
  }
}

std::string ModelCase::PlannedName(int kind, std::size_t row) {
  const std::vector<PlainRow>& rows = worlds_.model.rows;
  const std::string& own = rows[row].source;
  switch (kind) {
    case 0:  // each takes the next one's name, round
      return rows[(row + 1) % rows.size()].source;
    case 1:  // swaps
      return rows[(row ^ 1) < rows.size() ? row ^ 1 : row].source;
    case 2:
      return names_[0];
    case 3:
      return draw_.OneIn(2) ? text::ToUpper(own) : text::ToLower(own);
    case 4:
      return own;
    case 5:
      return draw_.OneIn(3) ? "n" + std::to_string(draw_.Below(4)) : own + ".x";
    case 6:
      if (real_ && draw_.OneIn(3)) return draw_.OneIn(2) ? ".." : std::string(255, 'w');
      return draw_.From(kImpossibleNames);
    default:
      return draw_.From(names_);
  }
}

void ModelCase::MakePlan() {
  const int whole = draw_.Below(10);
  for (std::size_t i = 0; i < worlds_.model.rows.size(); ++i) {
    const PlainRow& row = worlds_.model.rows[i];
    if (row.RowTag == 1) continue;
    int kind = whole >= 6 ? 7 : whole;
    if (draw_.OneIn(6)) kind = draw_.Below(8);
    if (kind == 6 && !draw_.OneIn(4)) kind = 7;
    worlds_.Plan(i, row.checked ? PlannedName(kind, i) : "");
    Tell("  row " + std::to_string(i) + ": " + row.path + " " + row.source +
         (row.checked ? " > " + row.new_name : " unchecked"));
  }
  worlds_.CountAnew();
  stage_ = kPlanned;
}

void ModelCase::ChooseOptions() {
  const std::string in = disk_.root + "/in/", out = disk_.out_root + "/out/";
  const std::vector<std::string> outputs = {
      out, out, out, in, in, in + "sub/", disk_.out_root + "/new/x/", disk_.root + "/in", "out/"};
  PlainOptions options = worlds_.model.options;
  options.destination = draw_.OneIn(2) ? 0 : 1 + draw_.Below(2);
  options.fdDestination = draw_.From(outputs);
  options.fdSourceFolder = in;
  options.subfolders = draw_.OneIn(2);
  if (options.destination == 2 && draw_.OneIn(3)) options.fdDestination = in;
  worlds_.SetOptions(options);
  Tell("output " + std::to_string(options.destination) + " " + options.fdDestination +
       (options.subfolders ? " with subfolders" : ""));
  if (stage_ == kPlanned || draw_.OneIn(3)) ChooseNumbering();
}

void ModelCase::ChooseNumbering() {
  const std::vector<std::pair<std::string, std::string>> templates = {
      {"_{", "}"}, {"_{", "}"}, {"_{", "}"}, {"", ""},    {" ", ""},  {"1", "2"},
      {".", "."},  {"_", "/"},  {"/", ""},   {"", "\0"s}, {"*", "?"}, {"_{1}_{", "}"}};
  PlainOptions options = worlds_.model.options;
  options.add_number = draw_.OneIn(4) ? 0 : 1;
  std::tie(options.left, options.right) = draw_.From(templates);
  worlds_.SetOptions(options);
  Tell("numbering "s + (options.add_number ? "on " : "off ") + options.left + "1" + options.right);
}

// What the user does.

bool ModelCase::Play() {
  const int steps = 2 + draw_.Below(5);
  for (int i = 0; i < steps; ++i) {
    TakeAStep();
    const std::string differences = worlds_.Differences();
    if (!differences.empty()) {
      Tell(differences);
      return false;
    }
  }
  return true;
}

void ModelCase::TakeAStep() {
  if (draw_.OneIn(10)) ChooseOptions(), undisturbed_ = false;
  if (draw_.OneIn(8)) Meddle(), meddled_ = true;
  switch (stage_) {
    case kPlanned:
      return Run();
    case kRunDone:
      return Undo();
    case kRunCancelled:
    case kUndoCancelled:
      return draw_.OneIn(2) ? Run() : Undo();
    case kUndone:
      if (draw_.OneIn(2)) MakePlan();
      return Run();
  }
}

PlainTrouble ModelCase::ChooseTrouble() {
  PlainTrouble trouble;
  const int rows = static_cast<int>(worlds_.model.rows.size());
  trouble.slow_copies = !real_ && draw_.OneIn(3);
  if (draw_.OneIn(3)) trouble.cancel_at = 1 + draw_.Below(2 * rows + 1);
  if (draw_.OneIn(4)) {
    for (int i = draw_.Below(3); i >= 0; --i) trouble.failing.insert(1 + draw_.Below(2 * rows + 1));
  }
  return trouble;
}

void ModelCase::TellPass(const std::string& pass, const PlainTrouble& trouble) {
  std::string line = pass;
  if (worlds_.model.gCancelRequested) line += ", cancelled at " + std::to_string(trouble.cancel_at);
  for (const int failing : trouble.failing) {
    if (failing <= worlds_.model.operations) line += ", failing call " + std::to_string(failing);
  }
  Tell(line + ", " + std::to_string(worlds_.model.failures.size()) + " failures");
}

void ModelCase::Run() {
  const auto takes_part = [](const PlainRow& row) {
    return row.RowTag == 1 || !row.rollback.empty();
  };
  const std::vector<PlainRow>& rows = worlds_.model.rows;
  if (std::none_of(rows.begin(), rows.end(), takes_part)) {
    before_ = Files();
    planned_.clear();
    for (const PlainRow& row : rows) planned_.push_back(row.new_name);
    undisturbed_ = true;
  }
  const PlainTrouble trouble = ChooseTrouble();
  worlds_.Run(trouble);
  TellPass("run", trouble);
  if (!worlds_.model.failures.empty() || !trouble.failing.empty()) undisturbed_ = false;
  stage_ = worlds_.model.gCancelRequested ? kRunCancelled : kRunDone;
}

void ModelCase::Undo() {
  const PlainTrouble trouble = ChooseTrouble();
  worlds_.Undo(trouble);
  TellPass("undo", trouble);
  if (!trouble.failing.empty()) undisturbed_ = false;
  stage_ = worlds_.model.gCancelRequested ? kUndoCancelled : kUndone;
  if (stage_ == kUndone && undisturbed_ && !meddled_) NoteRoundTrip();
}

void ModelCase::Meddle() {
  if (draw_.OneIn(2)) return SpoilACopy();
  const std::string path = draw_.From(folders_) + draw_.From(names_);
  const auto found = worlds_.model.disk.find(path);
  if (found == worlds_.model.disk.end()) {
    worlds_.Write(path, "a stranger at " + path + std::to_string(++strangers_));
    Tell("a stranger comes as " + path);
  } else if (found->second.kind != PlainEntry::kFolder && !IsAFoldersName(Name(path))) {
    worlds_.Remove(path);
    Tell("somebody removes " + path);
  }
}

/// Then a folder made by a run could take the place of a row's file that was removed.
bool ModelCase::IsAFoldersName(const std::string& name) const {
  return std::any_of(folders_.begin(), folders_.end(),
                     [&](const std::string& folder) { return folder.ends_with("/" + name + "/"); });
}

/// Writes to a copy that a run made, puts another file in its place, or takes it away.
void ModelCase::SpoilACopy() {
  for (const PlainRow& row : worlds_.model.rows) {
    const std::string path = row.new_path + row.new_name;
    if (row.mode != 1 || !worlds_.model.disk.contains(path) || draw_.OneIn(2)) continue;
    const int how = draw_.Below(3);
    if (how != 0) worlds_.Remove(path);
    if (how != 1) worlds_.Write(path, "no longer the copy " + std::to_string(++strangers_));
    Tell((how == 0 ? "writes to " : how == 1 ? "removes " : "replaces ") + path);
  }
}

// What stays after a run and its undo.

ModelCase::Contents ModelCase::Files() const {
  Contents files;
  for (const auto& [path, entry] : worlds_.model.disk) {
    if (entry.kind != PlainEntry::kFolder) files[path] = entry.content;
  }
  return files;
}

void ModelCase::NoteRoundTrip() {
  const bool exact = Files() == before_ && worlds_.model.failures.empty();
  round_trips.push_back({worlds_.model.options.destination, exact, exact ? "" : KindOfRest()});
  if (exact) return;
  Tell("rest: " + round_trips.back().kind);
  const Contents after = Files();
  for (const auto& [path, content] : before_) {
    if (!after.contains(path) || after.at(path) != content) Tell("  not back: " + path);
  }
  for (const auto& [path, content] : after) {
    if (!before_.contains(path)) Tell("  instead: " + path + " = " + content);
  }
}

bool ModelCase::HasTwins() const {
  std::map<std::string, std::string> seen;
  std::vector<std::string> names = planned_;
  for (const auto& [path, content] : before_) names.push_back(Name(path));
  for (const std::string& name : names) {
    const auto [place, added] = seen.try_emplace(text::ToLower(name), name);
    if (place->second != name) return true;
  }
  return false;
}

std::string ModelCase::KindOfRest() const {
  const PlainOptions& options = worlds_.model.options;
  if (options.destination == 1) return "";
  if ((options.left + options.right).find_first_of("/\0"s) != std::string::npos) {
    return "failed move aside";
  }
  if (HasTwins()) return "letter-case twins";
  if (options.destination != 2) return "";
  const bool inside = options.fdDestination.size() > options.fdSourceFolder.size() &&
                      options.fdDestination.starts_with(options.fdSourceFolder);
  if (inside) return "output folder inside the source folder";
  // Only where files come back to a folder that other files of the run went to.
  return text::EqualIgnoringCase(options.fdDestination, options.fdSourceFolder) ? "path test" : "";
}
