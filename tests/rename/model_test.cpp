#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <regex>
#include <string>

#include "platform/text.h"
#include "rename/model_world.h"

// The passes against the plain model, in random cases. QUORVANE_MODEL_CASES is the number of cases
// of each test, QUORVANE_MODEL_SEED the seed of the first; every further case has the next one. So
// one case is played again by its seed and a number of 1.

namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const Texts kPlainNames = {"a",         "b",     "c",     "d",        "1",         "a.txt", "b.txt",
                           "a_{1}",     "a_{2}", "b_{1}", "a1",       "a_{1}.txt", "x.y.z", "-rf",
                           "b_{1}_{1}", "2.txt", "a2",    "\xC3\xA9", "c_{1}"};
const Texts kAwkwardNames = {"A",        "A.TXT",     "B",         ".a",         "a.",
                             "a b ",     " ",         "_{1}",      "\xC3\x89",   "a_{01}",
                             "A_{1}",    "bad\xFF.x", "BAD\xFF.x", "two\nlines", "a*",
                             "?",        "[a]",       "*.txt",     "..a",        "\xE2\x80\xAE.txt",
                             "e\xCC\x81"};
const Texts kImpossibleNames = {"", "b/c", "../b", "a\0b"s, "..", std::string(256, 'w')};
/// What stands left and right of a number, which is the "#".
const Texts kNumberTexts = {"_{#}", "_{#}", "_{#}", "#",    " #",  "1#2",
                            ".#.",  "_#/",  "/#",   "#\0"s, "*#?", "_{1}_{#}"};

std::string Name(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string Folder(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

/// Every byte that can't be read is shown by its number.
std::string Readable(const std::string& story) {
  return std::regex_replace(testing::PrintToString(story), std::regex("\\\\n"), "\n");
}

/// One random tree, a plan for its files, and what a user does then. With `faults`, operations fail
/// and somebody else changes files. The two worlds are compared after every step; and a whole undo
/// must have brought back all files, folders and rows, unless something failed or somebody came.
class ModelCase {
 public:
  ModelCase(std::uint32_t seed, TwoWorlds::Disk disk, bool faults)
      : worlds_(disk), random_(seed), real_(disk >= TwoWorlds::kReal), faults_(faults) {
    ChooseNames();
    MakeTree();
    ListFiles();
    ChooseOutput();
    MakePlan();
  }

  /// False when the worlds differ, a file was lost or an undo left something; `story` ends with it.
  bool Play() {
    for (int steps = 2 + Below(5); steps > 0; --steps) {
      if (!TakeAStep()) return false;
    }
    return !begun_ || Undo({});
  }

  std::string story;  ///< readable, one line a step

 private:
  // Draws that are the same on every machine.
  int Below(int n) { return static_cast<int>(random_() % static_cast<std::uint32_t>(n)); }
  bool OneIn(int n) { return Below(n) == 0; }
  template <class List>
  const auto& From(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }

  void Tell(const std::string& line) { story += line + "\n"; }

  /// Around the most bytes that a name may have, in characters of one to four bytes.
  std::string LongName() {
    const std::string kind = From(Texts{"x", "\xC3\xA9", "\xE6\x97\xA5", "e\xCC\x81"});
    const std::string end = From(Texts{"", ".txt", "1", "2.txt", "." + std::string(240, 'y')});
    std::string name = OneIn(2) ? "" : "a";
    const auto wanted = static_cast<std::size_t>(250 + Below(6));
    while (name.size() + kind.size() + end.size() <= wanted) name += kind;
    return name + end;
  }

  void ChooseNames() {
    const bool awkward = OneIn(2), lengthy = OneIn(5);
    for (int count = 3 + Below(9); count > 0; --count) {
      const bool is_long = lengthy && OneIn(2);
      names_.push_back(is_long ? LongName()
                               : From(awkward && OneIn(2) ? kAwkwardNames : kPlainNames));
    }
  }

  /// The output folders lie beside the source, in it, above it, or lead there by other ways.
  void MakeTree() {
    const std::string in = worlds_.root + "/in", out = worlds_.out_root + "/out";
    folders_ = {in};
    if (!OneIn(3)) folders_.push_back(in + "/sub");
    if (OneIn(3)) folders_.push_back(in + "/" + From(names_));
    if (OneIn(3)) folders_.push_back(out);
    if (folders_.size() > 1 && OneIn(4)) folders_.push_back(folders_[1] + "/sub");
    for (const std::string& folder : folders_) {
      if (!worlds_.Has(folder)) worlds_.MakeFolder(folder);
    }
    const int most = !real_ && OneIn(40) ? 40 : 8;
    for (const std::string& folder : folders_) FillFolder(folder + "/", most);
    for (int i = !real_ && OneIn(1000) ? 650 : 0; i > 0; --i) {
      worlds_.Write(in + "/f" + std::to_string(i), std::to_string(i));
    }
    outputs_ = {worlds_.root + "/", in, "out/"};
    for (const char* o : {"/", "/", "/new/x/", "/pre", "/new/../"}) outputs_.push_back(out + o);
    for (const char* o : {"/", "/sub/", "/new/", "/../in/", "/./sub/"}) outputs_.push_back(in + o);
    outputs_.push_back(in + "/" + From(names_) + "/");
    const std::string link = in + "/link";
    if (!OneIn(4) || worlds_.Has(link)) return;
    worlds_.MakeLink(link, OneIn(2) ? in : folders_.back());
    names_.push_back("link");
    outputs_.insert(outputs_.end(), {link + "/", link + "/sub/new/"});
  }

  void FillFolder(const std::string& folder, int most) {
    for (int count = Below(most + 1); count > 0; --count) {
      std::string path = folder + From(names_);
      if (most > 8 && OneIn(2)) path += std::to_string(Below(30));
      if (worlds_.Has(path) || Name(path).size() > 255) continue;
      const int kind = Below(25);
      if (kind == 0) worlds_.MakeFolder(path);
      if (kind == 1) worlds_.MakeLink(path, "nowhere");
      if (kind > 1) worlds_.Write(path, "first at " + path);
    }
  }

  /// Most files in any order, folder by folder or through each other.
  void ListFiles() {
    Texts listed;
    for (const auto& [path, content] : worlds_.Everything()) {
      Tell("  " + path + " " + content.substr(0, content.find(" at ")));
      const bool in = path.starts_with(worlds_.root + "/in/") && content != "/";
      if (in && !OneIn(8)) listed.push_back(path);
    }
    for (std::size_t i = listed.size(); i > 1; --i) {
      std::swap(listed[i - 1], listed[static_cast<std::size_t>(Below(static_cast<int>(i)))]);
    }
    if (!OneIn(3)) std::ranges::stable_sort(listed, {}, Folder);
    for (const std::string& path : listed) {
      worlds_.AddRow(Folder(path), Name(path), !OneIn(8), !OneIn(4));
    }
  }

  std::string PlannedName(int kind, std::size_t row) {
    const std::vector<PlainRow>& rows = worlds_.model.rows;
    const std::string& own = rows[row].source;
    if (kind == 0) return rows[(row + 1) % rows.size()].source;                  // round
    if (kind == 1) return rows[(row ^ 1) < rows.size() ? row ^ 1 : row].source;  // swaps
    if (kind == 2) return names_[0];
    if (kind == 3) return OneIn(2) ? text::ToUpper(own) : text::ToLower(own);
    if (kind == 4) return own;
    if (kind == 5) return OneIn(3) ? "n" + std::to_string(Below(4)) : own + ".x";
    return From(kind == 6 ? kImpossibleNames : names_);
  }

  void MakePlan() {
    const int whole = Below(10);
    for (std::size_t i = 0; i < worlds_.model.rows.size(); ++i) {
      const PlainRow& row = worlds_.model.rows[i];
      int kind = OneIn(6) ? Below(8) : whole;
      if (kind == 6 && !OneIn(4)) kind = 7;
      worlds_.Plan(i, row.checked ? PlannedName(kind, i) : "");
      Tell("  " + row.path + row.source + (row.checked ? " > " + row.new_name : " unchecked"));
    }
    worlds_.CountAnew();
  }

  void ChooseOutput() {
    PlainOptions options = worlds_.model.options;
    const std::string in = options.fdSourceFolder = worlds_.root + "/in/";
    options.destination = OneIn(2) ? 0 : 1 + Below(2);
    options.fdDestination = options.destination == 2 && OneIn(3) ? in : From(outputs_);
    options.subfolders = OneIn(2);
    options.add_number = OneIn(4) ? 0 : 1;
    if (OneIn(2)) {
      std::string texts = From(kNumberTexts);
      const auto longer = static_cast<std::size_t>(250 + 2 * Below(26));
      if (OneIn(5)) texts.insert(OneIn(2) ? 0 : texts.size(), longer, 'l');
      options.left = texts.substr(0, texts.find('#'));
      options.right = texts.substr(texts.find('#') + 1);
    }
    worlds_.SetOptions(options);
    Tell("output " + std::to_string(options.destination) + " " + options.fdDestination +
         (options.subfolders ? " with subfolders" : "") +
         (options.add_number ? ", numbering " : ", no numbering ") + options.left + "1" +
         options.right);
  }

  // What the user does. Each answers whether all is well.

  bool TakeAStep() {
    if (OneIn(8)) ChooseOutput();
    if (faults_ && OneIn(8)) Meddle();
    Trouble trouble;
    const int most = 2 * static_cast<int>(worlds_.model.rows.size()) + 1;
    trouble.slow_copies = !real_ && OneIn(3);
    if (OneIn(3)) trouble.cancel_at = 1 + Below(most);
    if (faults_ && !real_ && OneIn(2)) {
      for (int i = Below(3); i >= 0; --i) trouble.failing.insert(1 + Below(most));
    }
    if (begun_ && !OneIn(4)) return Undo(trouble);
    if (!begun_ && OneIn(2)) MakePlan();
    return Run(trouble);
  }

  bool Run(const Trouble& trouble) {
    if (!begun_) before_ = worlds_.RowsAndFiles();
    begun_ = true;
    const bool whole = trouble.cancel_at == 0 && !faults_ && !worlds_.LinksMatter();
    const std::string foretold = whole ? worlds_.Foretold() : "";
    worlds_.Run(trouble);
    return Agree("run", trouble) && (!whole || IsAsForetold(foretold));
  }

  bool IsAsForetold(const std::string& foretold) {
    const std::string outcome = worlds_.Outcome(foretold);
    if (foretold != outcome) Tell("foretold " + foretold + "\nit came as " + outcome);
    return foretold == outcome;
  }

  bool Undo(const Trouble& trouble) {
    worlds_.Undo(trouble);
    if (!Agree("undo", trouble)) return false;
    if (worlds_.model.cancelled) return true;
    begun_ = worlds_.model.AnyTakesPart();
    return meddled_ || (begun_ && !trouble.failing.empty()) || IsWhole();
  }

  bool Agree(const std::string& pass, const Trouble& trouble) {
    const std::string differences = worlds_.Differences();
    Tell(pass + ", cancel at " + std::to_string(trouble.cancel_at) + ", " +
         std::to_string(worlds_.model.failures.size()) + " failures\n" + differences);
    return differences.empty();
  }

  /// All is as before the first run.
  bool IsWhole() {
    const Texts now = worlds_.RowsAndFiles();
    for (const std::string& line : before_) {
      if (std::ranges::count(now, line) == 0) Tell("not back: " + line);
    }
    return now == before_ && worlds_.model.failures.empty();
  }

  /// A stranger comes, or a file or copy goes or is another one.
  void Meddle() {
    meddled_ = true;
    std::string path = From(folders_) + "/" + From(names_);
    for (const PlainRow& row : worlds_.model.rows) {
      if (row.mode == 1 && OneIn(2)) path = row.new_path + row.new_name;
    }
    // A folder made by a run could take the place of a row's file that was removed.
    const auto holds = [&](const std::string& o) { return o.find("/" + Name(path)) != o.npos; };
    const bool is_folders = std::ranges::any_of(outputs_, holds);
    if (worlds_.Has(path) && (!worlds_.IsFile(path) || is_folders)) return;
    const bool goes = worlds_.Has(path) && !OneIn(3), comes = !goes || OneIn(2);
    if (goes) worlds_.Remove(path);
    if (comes) worlds_.Write(path, "a stranger at " + path + std::to_string(++strangers_));
    Tell("somebody " + (goes ? "removes "s : "") + (comes ? "writes " : "") + path);
  }

  TwoWorlds worlds_;
  std::mt19937 random_;
  const bool real_, faults_;
  Texts names_, folders_, outputs_;  ///< for files and plans; of the tree; to choose from
  Texts before_;                     ///< as it all stood before the first run
  bool begun_ = false;               ///< an undo has something to bring back
  bool meddled_ = false;
  int strangers_ = 0;
};

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : static_cast<std::uint32_t>(std::stoul(value));
}

void PlayCases(std::uint32_t cases, bool real, bool faults) {
  const std::uint32_t first = FromEnvironment("QUORVANE_MODEL_SEED", 1);
  cases = FromEnvironment("QUORVANE_MODEL_CASES", cases);
  for (std::uint32_t seed = first; seed - first < cases; ++seed) {
    using enum TwoWorlds::Disk;
    const TwoWorlds::Disk on_disk = seed % 5 == 0 ? kTwoDevices : kReal;
    ModelCase one(seed, real ? on_disk : seed % 4 == 0 ? kCaseBlind : kMemory, faults);
    ASSERT_TRUE(one.Play()) << "seed " << seed << "\n" << Readable(one.story);
    if (cases == 1) std::cout << Readable(one.story);
  }
}

}  // namespace

TEST(RunAndUndo, BringAllBackAndLoseNothing) {
  PlayCases(2000, false, false);
  PlayCases(1000, false, true);
}

TEST(RunAndUndo, DoTheSameOnDisk) {
  PlayCases(70, true, false);
  PlayCases(70, true, true);
}
