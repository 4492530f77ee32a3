// bytes.h: values as the bytes that they are in memory, one after the other, and a number that tells bytes apart.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace quillan {

template <class Value>
std::string_view Bytes_of(const Value& h) {
  static_assert(std::is_trivially_copyable_v<Value>);
  return {reinterpret_cast<const char*>(&h), sizeof h};
}

template <class Value>
void Append(std::string& sBytes, const Value& h) {
  sBytes += Bytes_of(h);
}

/// A text of any length goes with its length.
inline void Append(std::string& sBytes, const std::string& sText) {
  Append(sBytes, sText.size());
  sBytes += sText;
}

/// Takes a value from the front of sBytes. False: there are too few.
template <class Value>
bool Take(std::string_view& sBytes, Value& h) {
  static_assert(std::is_trivially_copyable_v<Value>);
  if (sBytes.size() < sizeof h) return false;
  std::memcpy(reinterpret_cast<char*>(&h), sBytes.data(), sizeof h);
  sBytes.remove_prefix(sizeof h);
  return true;
}

inline bool Take(std::string_view& sBytes, std::string& sText) {
  std::size_t NByte = 0;
  if (!Take(sBytes, NByte) || sBytes.size() < NByte) return false;
  sText.assign(sBytes.substr(0, NByte));
  sBytes.remove_prefix(NByte);
  return true;
}

/// A number for bytes that follow those for which it is iPrint so far. Bytes of one length of which a single one, or
/// up to eight neighbours, are changed never have the same number, others hardly ever. Eight bytes at a time: a whole
/// store is gone through in a few milliseconds.
inline std::uint64_t Mixed(std::uint64_t iPrint, std::string_view sBytes) {
  constexpr std::uint64_t iFactor = 0x9E3779B97F4A7C15U;
  for (std::size_t I = 0; I < sBytes.size(); I += sizeof iPrint) {
    std::uint64_t iWord = 0;
    std::memcpy(&iWord, sBytes.data() + I, std::min(sizeof iWord, sBytes.size() - I));
    iPrint = (iPrint ^ iWord) * iFactor;
    iPrint ^= iPrint >> 29U;
  }
  return iPrint;
}

}  // namespace quillan
