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
/// Around the most bytes that a name may have, in characters of one to four bytes.
std::string LongName(Draw& draw) {
  const std::vector<std::string> kinds = {"x", "\xC3\xA9", "\xE6\x97\xA5", "e\xCC\x81"};
  const std::string kind = draw.From(kinds);
  const std::string ends[] = {"", ".txt", "1", "2.txt", "." + std::string(240, 'y')};
  const std::string end = ends[draw.Below(5)];
  std::string name = draw.OneIn(2) ? "" : "a";
  const std::size_t wanted = static_cast<std::size_t>(250 + draw.Below(6));
  while (name.size() + kind.size() + end.size() <= wanted) name += kind;
  return name + end;
}

const std::vector<std::string> kImpossibleNames = {"", "b/c", "../b", "a\0b"s};

std::string Name(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string Folder(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

}  // namespace

ModelCase::ModelCase(std::uint32_t seed, ModelDisk& disk, const CaseKind& kind)
    : disk_(disk), worlds_(disk, kind.case_blind), draw_(seed), kind_(kind) {
  ChooseNames();
  MakeTree();
  ListFiles();
  ChooseOptions();
  MakePlan();
}

// The tree and the plan.

void ModelCase::ChooseNames() {
  const bool awkward = draw_.OneIn(2), lengthy = draw_.OneIn(5);
  const int count = 3 + draw_.Below(9);
  for (int i = 0; i < count; ++i) {
    if (lengthy && draw_.OneIn(2)) {
      names_.push_back(LongName(draw_));
    } else {
      names_.push_back(draw_.From(awkward && draw_.OneIn(2) ? kAwkwardNames : kPlainNames));
    }
  }
}

/// The output folders lie beside the source, in it, above it, or lead there by other ways.
void ModelCase::MakeTree() {
  const std::string in = disk_.root + "/in", out = disk_.out_root + "/out";
  folders_ = {in + "/"};
  if (!draw_.OneIn(3)) folders_.push_back(in + "/sub/");
  if (draw_.OneIn(3)) folders_.push_back(in + "/" + draw_.From(names_) + "/");
  if (draw_.OneIn(3)) folders_.push_back(out + "/");
  if (folders_.size() > 1 && draw_.OneIn(4)) folders_.push_back(folders_[1] + "sub/");
  for (const std::string& folder : folders_) {
    const std::string path = folder.substr(0, folder.size() - 1);
    if (!worlds_.Has(path)) worlds_.MakeFolder(path);
  }
  const int most = kind_.real ? 8 : draw_.OneIn(40) ? 40 : 8;
  for (const std::string& folder : folders_) FillFolder(folder, most);
  if (!kind_.real && draw_.OneIn(1000)) {
    for (int i = 0; i < 650; ++i) worlds_.Write(in + "/f" + std::to_string(i), std::to_string(i));
  }
  outputs_ = {out + "/",        out + "/",
              in + "/",         in + "/sub/",
              out + "/new/x/",  in + "/new/",
              disk_.root + "/", in + "/../in/",
              in + "/./sub/",   disk_.root + "/in",
              out + "/pre",     "out/",
              out + "/new/../", in + "/" + draw_.From(names_) + "/"};
  const std::string link = in + "/link";
  if (draw_.OneIn(4) && !worlds_.Has(link)) {
    worlds_.MakeLink(link,
                     draw_.OneIn(2) ? in : folders_.back().substr(0, folders_.back().size() - 1));
    names_.push_back("link");
    outputs_.push_back(link + "/");
    outputs_.push_back(link + "/sub/new/");
  }
}

void ModelCase::FillFolder(const std::string& folder, int most) {
  const int count = draw_.Below(most + 1);
  for (int i = 0; i < count; ++i) {
    std::string path = folder + draw_.From(names_);
    if (most > 8 && draw_.OneIn(2)) path += std::to_string(draw_.Below(30));
    if (worlds_.Has(path) || Name(path).size() > 255) continue;
    if (draw_.OneIn(25)) {
      worlds_.MakeFolder(path);
    } else if (draw_.OneIn(25)) {
      worlds_.MakeLink(path, "nowhere");
    } else {
      worlds_.Write(path, "first at " + path);
    }
  }
}

/// Most files in any order, folder by folder or through each other.
void ModelCase::ListFiles() {
  std::vector<std::string> listed;
  for (const auto& [path, content] : worlds_.Everything()) {
    const bool in = path.starts_with(disk_.root + "/in/") && content != kFolderContent;
    if (in && !draw_.OneIn(8)) listed.push_back(path);
    Tell("  " + path + (content == kFolderContent ? "/" : content[0] == '-' ? " " + content : ""));
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
      if (draw_.OneIn(3)) return draw_.OneIn(2) ? ".." : std::string(256, 'w');
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
  const std::string in = disk_.root + "/in/";
  PlainOptions options = worlds_.model.options;
  options.destination = draw_.OneIn(2) ? 0 : 1 + draw_.Below(2);
  options.fdDestination = draw_.From(outputs_);
  options.fdSourceFolder = in;
  options.subfolders = draw_.OneIn(2);
  if (options.destination == 2 && draw_.OneIn(3)) options.fdDestination = in;
  worlds_.SetOptions(options);
  Tell("output " + std::to_string(options.destination) + " " + options.fdDestination +
       (options.subfolders ? " with subfolders" : ""));
  if (stage_ == kPlanned || draw_.OneIn(3)) ChooseNumbering();
}

void ModelCase::ChooseNumbering() {
  const std::vector<std::pair<std::string, std::string>> templates = {{"_{", "}"},
                                                                      {"_{", "}"},
                                                                      {"_{", "}"},
                                                                      {"", ""},
                                                                      {" ", ""},
                                                                      {"1", "2"},
                                                                      {".", "."},
                                                                      {"_", "/"},
                                                                      {"/", ""},
                                                                      {"", "\0"s},
                                                                      {"*", "?"},
                                                                      {"_{1}_{", "}"},
                                                                      {std::string(250, 'l'), ""},
                                                                      {"", std::string(252, 'r')},
                                                                      {std::string(300, 'l'), "r"}};
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
    if (!Agree() || (stage_ == kUndone && !kind_.faults && !IsWhole())) return false;
  }
  if (worlds_.meddled || stage_ == kPlanned) return true;
  Undo({});
  return Agree() && IsWhole();
}

bool ModelCase::Agree() {
  const std::string differences = worlds_.Differences();
  Tell(differences);
  return differences.empty();
}

/// All is as before the first run.
bool ModelCase::IsWhole() {
  const std::map<std::string, std::string> files = worlds_.Everything();
  const std::vector<std::string> rows = worlds_.Rows();
  for (const auto& [path, content] : files_before_) {
    if (!files.contains(path) || files.at(path) != content) Tell("not back: " + path);
  }
  for (const auto& [path, content] : files) {
    if (!files_before_.contains(path)) Tell("instead: " + path + " = " + content);
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i] != rows_before_[i]) Tell("row was " + rows_before_[i] + "\n  is now " + rows[i]);
  }
  for (const std::string& failure : worlds_.model.failures) Tell("not undone: " + failure);
  ++undone;
  return files == files_before_ && rows == rows_before_ && worlds_.model.failures.empty();
}

void ModelCase::TakeAStep() {
  if (draw_.OneIn(8)) ChooseOptions();
  if (kind_.faults && draw_.OneIn(8)) Meddle();
  switch (stage_) {
    case kPlanned:
      return Run();
    case kRunDone:
      return Undo(ChooseTrouble(true));
    case kRunCancelled:
    case kUndoCancelled:
      return draw_.OneIn(2) ? Run() : Undo(ChooseTrouble(true));
    case kUndone:
      if (!worlds_.model.AnyTakesPart() && draw_.OneIn(2)) MakePlan();
      return Run();
  }
}

PlainTrouble ModelCase::ChooseTrouble(bool more_faults) {
  PlainTrouble trouble;
  const int rows = static_cast<int>(worlds_.model.rows.size());
  trouble.slow_copies = !kind_.real && draw_.OneIn(3);
  if (draw_.OneIn(3)) trouble.cancel_at = 1 + draw_.Below(2 * rows + 1);
  if (kind_.faults && more_faults && draw_.OneIn(2)) {
    for (int i = draw_.Below(3); i >= 0; --i) trouble.failing.insert(1 + draw_.Below(2 * rows + 1));
  }
  return trouble;
}

void ModelCase::TellPass(const std::string& pass, const PlainTrouble& trouble) {
  std::string line = pass;
  if (worlds_.model.gCancelRequested) line += ", cancelled at " + std::to_string(trouble.cancel_at);
  for (const int failing : trouble.failing) line += ", failing call " + std::to_string(failing);
  Tell(line + ", " + std::to_string(worlds_.model.failures.size()) + " failures");
}

void ModelCase::Run() {
  if ((stage_ == kPlanned || stage_ == kUndone) && !worlds_.model.AnyTakesPart()) {
    files_before_ = worlds_.Everything();
    rows_before_ = worlds_.Rows();
  }
  const PlainTrouble trouble = ChooseTrouble(true);
  worlds_.Run(trouble);
  TellPass("run", trouble);
  stage_ = worlds_.model.gCancelRequested ? kRunCancelled : kRunDone;
}

void ModelCase::Undo(const PlainTrouble& trouble) {
  worlds_.Undo(trouble);
  TellPass("undo", trouble);
  stage_ = worlds_.model.gCancelRequested ? kUndoCancelled : kUndone;
}

void ModelCase::Meddle() {
  worlds_.meddled = true;
  if (draw_.OneIn(2)) return SpoilACopy();
  const std::string path = draw_.From(folders_) + draw_.From(names_);
  if (!worlds_.Has(path)) {
    worlds_.Write(path, "a stranger at " + path + std::to_string(++strangers_));
    Tell("a stranger comes as " + path);
  } else if (worlds_.IsFile(path) && !IsAFoldersName(Name(path))) {
    worlds_.Remove(path);
    Tell("somebody removes " + path);
  }
}

/// Then a folder made by a run could take the place of a row's file that was removed.
bool ModelCase::IsAFoldersName(const std::string& name) const {
  return std::any_of(outputs_.begin(), outputs_.end(), [&](const std::string& folder) {
    return folder.find("/" + name) != folder.npos;
  });
}

/// Writes to a copy that a run made, puts another file in its place, or takes it away.
void ModelCase::SpoilACopy() {
  for (const PlainRow& row : worlds_.model.rows) {
    const std::string path = row.new_path + row.new_name;
    if (row.mode != 1 || !worlds_.IsFile(path) || draw_.OneIn(2)) continue;
    const int how = draw_.Below(3);
    if (how != 0) worlds_.Remove(path);
    if (how != 1) worlds_.Write(path, "no longer the copy " + std::to_string(++strangers_));
    Tell((how == 0 ? "writes to " : how == 1 ? "removes " : "replaces ") + path);
  }
}
