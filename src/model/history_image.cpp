#include "model/history_image.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <tuple>
#include <type_traits>

#include "foundations/bytes.h"
#include "metadata/mdp_data.h"
#include "model/sound_data.h"
#include "model/stn_data.h"
#include "model/txw_data.h"

namespace quillan {
namespace {

static_assert(std::is_trivially_copyable_v<Transient>, "transients are kept as bytes");

/// Every field, so that what lies between them in memory does not count. A field that is missing here does not compile.
auto Fields(const Transient& h) {
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19, f20, f21, f22, f23,
               f24, f25, f26, f27, f28, f29, f30, f31, f32, f33, f34, f35, f36, f37, f38, f39, f40, f41, f42, f43, f44,
               f45, f46] = h;
  return std::tie(f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19, f20, f21, f22,
                  f23, f24, f25, f26, f27, f28, f29, f30, f31, f32, f33, f34, f35, f36, f37, f38, f39, f40, f41, f42,
                  f43, f44, f45, f46);
}

auto Fields(Survey& h) {
  auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19, f20, f21, f22, f23, f24,
         f25, f26, f27, f28, f29] = h;
  return std::tie(f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19, f20, f21, f22,
                  f23, f24, f25, f26, f27, f28, f29);
}

auto Fields(StationTable& h) {
  return std::tie(static_cast<StationRanges&>(h), h.NStn, h.NStnLine, h.iStnS0, h.iStnL0, h.iStnX0, h.iStnY0, h.fStnS,
                  h.fStnL, h.fStnX, h.fStnY, h.fStnZ, h.fStnH, h.fStnP, h.fStnR, h.fStnD, h.iMuxBox, h.iMuxChn,
                  h.dStnLine, h.iStnBeg, h.iStnEnd, h.hLineStat, h.lLine, h.lDepth, h.lStnAzm, h.lPitch, h.lRoll,
                  h.lMuxBox, h.lMuxChn, h.fSLmin, h.fSLmax);
}

// ---- values as bytes

using quillan::Append;
using quillan::Take;

/// A column goes with its length.
template <class T>
void Append(std::string& sBytes, const StationColumn<T>& hColumn) {
  static_assert(std::is_trivially_copyable_v<T>);
  const auto hItem = hColumn.Items(1, hColumn.NItem());
  Append(sBytes, hColumn.NItem());
  sBytes.append(reinterpret_cast<const char*>(hItem.data()), hItem.size_bytes());
}

template <class T>
bool Take(std::string_view& sBytes, StationColumn<T>& hColumn) {
  I4 NItem = 0;
  if (!Take(sBytes, NItem) || NItem < 0 || sBytes.size() / sizeof(T) < static_cast<std::size_t>(NItem)) return false;
  hColumn = {};
  hColumn.Start(NItem, NItem, T{});
  const auto hItem = hColumn.Items(1, NItem);
  if (!hItem.empty()) std::memcpy(reinterpret_cast<char*>(hItem.data()), sBytes.data(), hItem.size_bytes());
  sBytes.remove_prefix(hItem.size_bytes());
  return true;
}

// ---- parts

template <auto& hValue>
std::string Plain_Bytes() {
  return std::string(Bytes_of(hValue));
}

template <auto& hValue>
bool Put_Plain(std::string_view sBytes) {
  return sBytes.size() == sizeof hValue && Take(sBytes, hValue);
}

template <auto& hValue>
bool Fits_Plain(std::string_view sBytes) {
  const auto h = std::make_unique<std::remove_reference_t<decltype(hValue)>>();
  return sBytes.size() == sizeof *h && Take(sBytes, *h) && Is_Sound(*h);
}

/// A part that is one record without texts of its own.
template <auto& hValue>
constexpr HistoryPart Plain(std::string_view sName) {
  return {sName, Plain_Bytes<hValue>, Put_Plain<hValue>, Fits_Plain<hValue>};
}

/// A part that is a record of fields.
template <auto& hRecord>
std::string Field_Bytes() {
  std::string sBytes;
  std::apply([&sBytes](const auto&... hField) { (Append(sBytes, hField), ...); }, Fields(hRecord));
  return sBytes;
}

/// False: the bytes are not those of the fields.
template <class Record>
bool Take_Fields(std::string_view sBytes, Record& h) {
  return std::apply([&sBytes](auto&... hField) { return (Take(sBytes, hField) && ...); }, Fields(h)) && sBytes.empty();
}

bool Put_Survey(std::string_view sBytes) {
  Survey h;
  if (!Take_Fields(sBytes, h)) return false;
  hTemSurvey = std::move(h);
  return true;
}

std::string File_Bytes() {
  return sAvgFile;
}

bool Put_File(std::string_view sBytes) {
  sAvgFile = sBytes;
  return true;
}

bool Fits_File(std::string_view sBytes) {
  return sBytes.find('\0') == std::string_view::npos;
}

std::string Loop_Bytes() {
  std::string sBytes;
  Append(sBytes, NTxw);
  Append(sBytes, NTxwError);
  for (I4 K = 1; K <= hTxw.MLoop(); ++K) Append(sBytes, hTxw(K));
  return sBytes;
}

bool Put_Loops(std::string_view sBytes) {
  I4 NUsed = 0, NError = 0;
  if (!Take(sBytes, NUsed) || !Take(sBytes, NError) || sBytes.size() % sizeof(WireLoop) != 0) return false;
  hTxw.Clear();
  for (I4 K = 1; !sBytes.empty(); ++K) {
    hTxw.Add();
    static_cast<void>(Take(sBytes, hTxw(K)));
  }
  NTxw = std::clamp(NUsed, 0, hTxw.MLoop());
  NTxwError = NError;
  return true;
}

bool Fits_Loops(std::string_view sBytes) {
  I4 NUsed = 0, NError = 0;
  if (!Take(sBytes, NUsed) || !Take(sBytes, NError) || sBytes.size() % sizeof(WireLoop) != 0) return false;
  if (NUsed < 0 || static_cast<std::size_t>(NUsed) > sBytes.size() / sizeof(WireLoop)) return false;
  for (WireLoop h; Take(sBytes, h);) {
    if (!Is_Sound(h)) return false;
  }
  return true;
}

bool Put_Stations(std::string_view sBytes) {
  StationTable h;
  if (!Take_Fields(sBytes, h)) return false;
  hStn = std::move(h);
  return true;
}

/// The same for any record of fields that can be worked with.
template <class Record>
bool Fits_Fields(std::string_view sBytes) {
  Record h;
  return Take_Fields(sBytes, h) && Is_Sound(h);
}

// Recorded edits name a part by its place: a new one goes to the end.
constexpr HistoryPart hHistoryPart[] = {
    {"survey",     Field_Bytes<hTemSurvey>, Put_Survey,   Fits_Fields<Survey>      },
    Plain<hAvgKept>("kept lines"),
    {"file name",  File_Bytes,              Put_File,     Fits_File                },
    {"wire loops", Loop_Bytes,              Put_Loops,    Fits_Loops               },
    Plain<MdJob>("metadata"),
    Plain<MdSurvey>("metadata"),
    Plain<MdUnit>("metadata"),
    Plain<MdGrid>("metadata"),
    Plain<MdLine>("metadata"),
    Plain<MdStn>("metadata"),
    Plain<MdKvr>("metadata"),
    Plain<MdGps>("metadata"),
    Plain<MdTx>("metadata"),
    Plain<MdRx>("metadata"),
    Plain<MdChn>("metadata"),
    {"stations",   Field_Bytes<hStn>,       Put_Stations, Fits_Fields<StationTable>},
};

// ---- transients

bool Has_Same_Fields(const Transient& h1, const Transient& h2) {
  return std::apply(
      [&h2](const auto&... hField1) {
        return std::apply([&](const auto&... hField2) { return ((Bytes_of(hField1) == Bytes_of(hField2)) && ...); },
                          Fields(h2));
      },
      Fields(h1));
}

constexpr std::size_t NBlock[] = {512, 64, 8, 1};  // bytes that are compared at once, coarse steps first

/// The same as Differing_Bytes, with what lies between the fields.
DataChange::Run Differing_Memory(I4 j, const Transient& h1, const Transient& h2) {
  const std::string_view s1 = Bytes_of(h1), s2 = Bytes_of(h2);
  if (s1 == s2) return {j, 0, 0};
  std::size_t iFirst = 0, iEnd = s1.size();
  for (const std::size_t N : NBlock) {
    while (iFirst + N <= iEnd && std::memcmp(&s1[iFirst], &s2[iFirst], N) == 0) iFirst += N;
    while (iFirst + N <= iEnd && std::memcmp(&s1[iEnd - N], &s2[iEnd - N], N) == 0) iEnd -= N;
  }
  return {j, static_cast<I4>(iFirst), static_cast<I4>(iEnd - iFirst)};
}

bool Is_Inside(const DataChange::Run& h) {
  return h.j >= 1 && h.iByte0 >= 0 && h.NByte >= 0 && I8{h.iByte0} + h.NByte <= static_cast<I8>(sizeof(Transient));
}

/// Runs that rise within the store of a change, hold as many bytes as there are, and give all of a transient that is
/// not there yet.
bool Runs_Fit(const DataChange& hChange) {
  I8 NByte = 0, NNew = 0;
  I4 jLast = 0;
  for (const DataChange::Run& h : hChange.hRun) {
    if (!Is_Inside(h) || h.j <= jLast || h.j > hChange.NTrn) return false;
    if (h.j > NTrn && h.NByte == static_cast<I4>(sizeof(Transient))) ++NNew;
    jLast = h.j;
    NByte += h.NByte;
  }
  return NByte == static_cast<I8>(hChange.sRun.size()) && NNew == std::max(hChange.NTrn - NTrn, 0);
}

bool Transients_Are_Sound(const DataChange& hChange) {
  const char* hBytes = hChange.sRun.data();
  Transient hAfter;
  for (const DataChange::Run& h : hChange.hRun) {
    hAfter = hTrn(h.j);
    std::memcpy(reinterpret_cast<char*>(&hAfter) + h.iByte0, hBytes, static_cast<std::size_t>(h.NByte));
    hBytes += h.NByte;
    if (!Is_Sound(hAfter)) return false;
  }
  return true;
}

bool Part_Fits(const DataChange::Part& h) {
  return h.K >= 1 && h.K <= static_cast<I4>(std::size(hHistoryPart)) && hHistoryPart[h.K - 1].Fits(h.sBytes);
}

}  // namespace

std::span<const HistoryPart> History_Parts() {
  return hHistoryPart;
}

std::size_t DataChange::Memory() const {
  std::size_t NByte = hRun.capacity() * sizeof(Run) + sRun.capacity() + hPart.capacity() * sizeof(Part);
  for (const Part& h : hPart) NByte += h.sBytes.capacity();
  return NByte;
}

DataChange::Run Differing_Bytes(I4 j, const Transient& h1, const Transient& h2) {
  const DataChange::Run hRun = Differing_Memory(j, h1, h2);
  if (hRun.NByte == 0 || Is_in_Flags(hRun)) return hRun;
  return Has_Same_Fields(h1, h2) ? DataChange::Run{j, 0, 0} : hRun;
}

bool Is_in_Flags(const DataChange::Run& h) {
  constexpr auto iFlags = static_cast<I4>(offsetof(Transient, bSkip));
  return h.iByte0 >= iFlags && h.iByte0 + h.NByte <= iFlags + static_cast<I4>(sizeof Transient::bSkip);
}

void Add_Run(DataChange& hChange, const DataChange::Run& hRun, const Transient& h) {
  hChange.hRun.push_back(hRun);
  hChange.sRun += Bytes_of(h).substr(static_cast<std::size_t>(hRun.iByte0), static_cast<std::size_t>(hRun.NByte));
}

bool Fits(const DataChange& hChange) {
  return hChange.NTrn >= 0 && hChange.NTrn <= MTrn && Runs_Fit(hChange) && Transients_Are_Sound(hChange) &&
         std::ranges::all_of(hChange.hPart, Part_Fits);
}

void Put_Transients(const DataChange& hChange, Transient* hTarget) {
  const char* hBytes = hChange.sRun.data();
  for (const DataChange::Run& h : hChange.hRun) {
    std::memcpy(reinterpret_cast<char*>(hTarget + (h.j - 1)) + h.iByte0, hBytes, static_cast<std::size_t>(h.NByte));
    hBytes += h.NByte;
  }
}

bool Put_Parts(const DataChange& hChange) {
  return std::ranges::all_of(hChange.hPart,
                             [](const DataChange::Part& h) { return hHistoryPart[h.K - 1].Put(h.sBytes); });
}

std::uint64_t Fingerprint(const Transient& h) {
  std::uint64_t iPrint = 0;
  std::apply([&iPrint](const auto&... hField) { ((iPrint = Mixed(iPrint, Bytes_of(hField))), ...); }, Fields(h));
  return iPrint;
}

}  // namespace quillan
