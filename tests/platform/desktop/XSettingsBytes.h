#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Writes the property in which an XSETTINGS manager has its settings.
class XSettingsBytes {
 public:
  explicit XSettingsBytes(bool isBigEndian) : isBigEndian_(isBigEndian) {}

  void addNumber(const std::string &name, std::uint32_t value) { add(name, 0, number(value, 4)); }

  void addText(const std::string &name, const std::string &value) {
    std::vector<unsigned char> bytes = number(static_cast<std::uint32_t>(value.size()), 4);
    append(bytes, padded(value));
    add(name, 1, bytes);
  }

  void addColor(const std::string &name) { add(name, 2, std::vector<unsigned char>(8, 0x7F)); }

  void add(const std::string &name, unsigned char type, const std::vector<unsigned char> &value) {
    ++count_;
    settings_.push_back(type);
    settings_.push_back(0);
    append(settings_, number(static_cast<std::uint32_t>(name.size()), 2));
    append(settings_, padded(name));
    append(settings_, number(kSerial, 4));
    append(settings_, value);
  }

  std::vector<unsigned char> bytes() const {
    std::vector<unsigned char> all = {static_cast<unsigned char>(isBigEndian_ ? 1 : 0), 0, 0, 0};
    append(all, number(kSerial, 4));
    append(all, number(count_, 4));
    append(all, settings_);
    return all;
  }

 private:
  static constexpr std::uint32_t kSerial = 3;

  static void append(std::vector<unsigned char> &to, const std::vector<unsigned char> &bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
  }

  static std::vector<unsigned char> padded(const std::string &text) {
    std::vector<unsigned char> bytes(text.begin(), text.end());
    bytes.resize((bytes.size() + 3) / 4 * 4);
    return bytes;
  }

  std::vector<unsigned char> number(std::uint32_t value, unsigned length) const {
    std::vector<unsigned char> bytes;
    for (unsigned i = 0; i < length; ++i) {
      const unsigned shift = 8 * (isBigEndian_ ? length - 1 - i : i);
      bytes.push_back(static_cast<unsigned char>(value >> shift));
    }
    return bytes;
  }

  bool isBigEndian_;
  std::uint32_t count_ = 0;
  std::vector<unsigned char> settings_;
};
