#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

/// File systems, by device number, found to lack something; forgotten with the process.
class DeviceSet {
 public:
  bool Has(std::uint64_t device) const {
    return std::find(devices_.begin(), devices_.end(), device) != devices_.end();
  }
  void Add(std::uint64_t device) {
    if (!Has(device)) devices_.push_back(device);
  }

 private:
  std::vector<std::uint64_t> devices_;  ///< few; searched from the front
};
