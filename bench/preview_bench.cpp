// How long the preview pass takes for a million rows, beside a loop that does no more than put
// each name together in one buffer and store it in its row.
//
//   quorvane_bench_preview [rows]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "names/counter.h"
#include "names/date_format.h"
#include "names/preview.h"
#include "support/fake_services.h"

namespace {

class PlainMonths : public LocaleFacts {
 public:
  std::string MonthName(int) const override { return "March"; }
  std::string ShortMonthName(int) const override { return "Mar"; }
  std::string DecimalPoint() const override { return "."; }
  std::string ThousandsSeparator() const override { return ","; }
};

void FillRecords(Records& records, std::size_t count, const char* stem) {
  char name[96];
  char folder[32];
  for (std::size_t i = 0; i < count; ++i) {
    std::snprintf(name, sizeof name, "%s_%07zu.JPG", stem, i);
    std::snprintf(folder, sizeof folder, "Day %zu", i / 1000);
    records.AddRecord(folder, "/photos/" + std::string(folder) + "/", name,
                      FileDate(2024, 3, 1 + static_cast<int>(i / 100 % 28), 1, 2, 3), 1e6,
                      "JPEG image");
  }
}

/// Six elements, each kind with options.
void FillWithOptions(Constructor& constructor) {
  auto& items = constructor.ArrConstr;
  ConstrItem& stem = items[0];
  stem.transform.Case = 3;
  stem.transform.Cut = 2;
  stem.transform.CutN = 2;
  stem.transform.Replace1 = "g_";
  stem.transform.Replace2 = "Photo ";
  stem.transform.Add = 4;
  stem.transform.AddN = 3;
  stem.transform.AddText1 = "-";
  items[2].transform.Case = 2;
  constructor.InsertArrConstrItem(1, kCounter, "");
  items[1].counter.Format = CounterFormatOfRange(items[1].counter.Range);
  constructor.InsertArrConstrItem(0, kFileDate, "");
  items[0].date.Format = ComposeDateFormat(8, 4, 2, "-");
  constructor.InsertArrConstrItem(0, kParentFolderName, "");
  items[0].transform.Case = 1;
  items[0].transform.Cut = 5;
  items[0].transform.CutN = 1;
  items[0].transform.Add = 2;
  items[0].transform.AddText1 = "_";
}

template <class Work>
double BestSeconds(Work work) {
  double best = 1e9;
  for (int round = 0; round < 5; ++round) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

void PlainLoop(Records& records) {
  std::string name;
  for (std::size_t i = 0; i < records.Count(); ++i) {
    const std::string& source = records[i].sourceFileName;
    const std::size_t dot = source.rfind('.');
    name.clear();
    name.append(source, 0, dot);
    name += '.';
    name.append(source, dot + 1);
    records[i].newFileName = name;
  }
}

void Measure(const char* label, Grid& grid, Constructor& constructor, double plain) {
  const std::unique_ptr<Clock> clock = MakeSystemClock();
  PlainMonths months;
  FakeServices fakes;
  const Services services = fakes.With(fakes.files, *clock, months);
  RunState state;
  const double taken = BestSeconds([&] {
    Pass pass(grid.AllRecords(), state, services, grid.RowCount());
    SetPreview(pass, grid, constructor);
  });
  const double rows = static_cast<double>(grid.AllRecords().Count());
  std::printf("%-28s %8.3f s %12.0f rows/s %6.2f x plain   %s\n", label, taken, rows / taken,
              taken / plain, grid.AllRecords()[grid.AllRecords().Count() - 1].newFileName.c_str());
}

void MeasureAll(const char* stem, std::size_t count) {
  Records records;
  FillRecords(records, count, stem);
  Grid grid(records);
  grid.Populate();
  const double plain = BestSeconds([&] { PlainLoop(records); });
  std::printf("%-28s %8.3f s %12.0f rows/s\n", "plain names", plain,
              static_cast<double>(count) / plain);
  Constructor constructor;
  Measure("default constructor", grid, constructor, plain);
  FillWithOptions(constructor);
  Measure("six elements with options", grid, constructor, plain);
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1'000'000;
  MeasureAll("IMG", count);
  MeasureAll("Ausfl\u00FCge_\u0416", count);
}
