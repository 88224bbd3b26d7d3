#include <array>

#include "rename/journal_records.h"

namespace journal {
namespace {

/// Table k takes a byte that stands k bytes before the end of its eight.
using CrcTables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr CrcTables MakeCrcTables() {
  CrcTables tables{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t crc = i;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320u : 0);
    tables[0][i] = crc;
  }
  for (std::size_t k = 1; k < tables.size(); ++k) {
    for (std::size_t i = 0; i < 256; ++i) {
      const std::uint32_t before = tables[k - 1][i];
      tables[k][i] = (before >> 8) ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}
constexpr CrcTables kCrcTables = MakeCrcTables();

void PutFixed(std::string& bytes, std::uint64_t value, std::size_t size) {
  std::array<char, 8> all;
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(value >> (8 * i));
  bytes.append(all.data(), size);
}

void PutNumber(std::string& bytes, std::uint64_t value) {
  for (; value >= 0x80; value >>= 7) bytes += static_cast<char>(value | 0x80);
  bytes += static_cast<char>(value);
}

void PutText(std::string& bytes, std::string_view text) {
  PutNumber(bytes, text.size());
  bytes += text;
}

void PutEntry(std::string& bytes, const FileIdentity& file) {
  PutNumber(bytes, file.device);
  PutNumber(bytes, file.inode);
  PutFixed(bytes, static_cast<std::uint64_t>(file.born_ns), 8);
}

void PutFile(std::string& bytes, const FileIdentity& file) {
  PutEntry(bytes, file);
  PutNumber(bytes, file.size);
  PutFixed(bytes, static_cast<std::uint64_t>(file.modified_ns), 8);
}

void PutPlace(std::string& bytes, const Place& place) {
  PutNumber(bytes, place.folder);
  PutText(bytes, place.name);
}

}  // namespace

std::uint32_t Crc(std::string_view bytes) {
  std::uint32_t crc = ~0u;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    std::uint32_t next = 0;
    for (std::size_t i = 0; i < 8; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      next ^= kCrcTables[7 - i][byte ^ (i < 4 ? (crc >> (8 * i)) & 0xFF : 0)];
    }
    crc = next;
  }
  for (const char c : bytes) {
    crc = (crc >> 8) ^ kCrcTables[0][(crc ^ static_cast<unsigned char>(c)) & 0xFF];
  }
  return ~crc;
}

void Writer::Begin(std::string& bytes, const PassFacts& pass) {
  Start(Kind::kPass);
  PutText(body_, pass.mark.machine);
  PutText(body_, pass.mark.boot);
  PutNumber(body_, pass.mark.user);
  PutNumber(body_, pass.mark.process);
  PutNumber(body_, pass.mark.started);
  PutFixed(body_, static_cast<std::uint64_t>(pass.began), 8);
  PutNumber(body_, static_cast<std::uint64_t>(pass.work));
  PutNumber(body_, static_cast<std::uint64_t>(pass.output_mode));
  PutText(body_, std::string_view(pass.source_folder).substr(0, kLongestBody / 2));
  PutNumber(body_, pass.wanted);
  Put(bytes);
}

void Writer::Folder(std::string& bytes, const std::string& path, const FolderIdentity& identity) {
  Start(Kind::kFolder);
  PutText(body_, path);
  PutEntry(body_, {identity.device, identity.inode, 0, 0, identity.born_ns});
  Put(bytes);
}

void Writer::Before(std::string& bytes, const Operation& operation) {
  Start(Kind::kOperation);
  PutOutcome();
  PutNumber(body_, static_cast<std::uint64_t>(operation.action));
  PutFixed(body_, operation.file, 8);
  PutPlace(body_, operation.from);
  if (HasTarget(operation.action)) PutPlace(body_, operation.to);
  Put(bytes);
}

void Writer::CopyIsWhole(std::string& bytes, const CopyIdentities& copied) {
  Start(Kind::kWhole);
  PutFile(body_, copied.source);
  PutFile(body_, copied.made);
  Put(bytes);
}

void Writer::End(std::string& bytes) {
  Start(Kind::kEnd);
  PutOutcome();
  Put(bytes);
}

void Writer::Incomplete(std::string& bytes) {
  Start(Kind::kIncomplete);
  Put(bytes);
}

void Writer::Start(Kind kind) {
  body_.assign(1, static_cast<char>(kind));
}

void Writer::PutOutcome() {
  const bool tells_made = outcome_ == Outcome::kDone && made_.inode != 0;
  body_ += static_cast<char>(tells_made ? kDoneAndMade : static_cast<std::uint8_t>(outcome_));
  if (tells_made) PutFile(body_, made_);
  outcome_ = Outcome::kUnknown;
}

void Writer::Put(std::string& bytes) const {
  PutText(bytes, body_);
  PutFixed(bytes, Crc(body_), 4);
}

}  // namespace journal
