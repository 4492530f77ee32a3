#include "commands/whole_command.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>
#include <tuple>
#include <utility>
#include <vector>

#include "commands/session.h"
#include "foundations/log_file.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"
#include "model/txw_data.h"
#include "review/qcs_sections.h"
#include "stations/stn_data.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

/// What a command can change, transients aside, as references.
auto Small_State() {
  return std::tie(hTemSurvey, hAvgKept, hTxw, NTxw, NTxwError, hStn, sAvgFile, hSession, MdJob, MdSurvey, MdUnit,
                  MdGrid, MdLine, MdStn, MdKvr, MdGps, MdTx, MdRx, MdChn);
}

template <class... Value>
std::tuple<Value...> Values_of(std::tuple<Value&...> hState) {
  return hState;
}

/// The data before a command.
class StoreCopy {
 public:
  StoreCopy() : hTrnBefore(hTrn.begin(), hTrn.begin() + NTrn), hState(Values_of(Small_State())) {}

  /// Takes no memory: there may be none.
  void Put_Back() {
    NTrn = static_cast<I4>(hTrnBefore.size());
    std::ranges::copy(hTrnBefore, hTrn.begin());
    Small_State() = std::move(hState);
  }

 private:
  std::vector<Transient> hTrnBefore;
  decltype(Values_of(Small_State())) hState;
};

void Report_No_Memory(Unfinished iUnfinished) {
  const bool bPutBack = iUnfinished == Unfinished::PutBack;
  try {
    WMenu(iMenuMain);                                 // a review leaves its own, a dialog a greyed one
    if (bPutBack) static_cast<void>(QCS_Allocate());  // as it was when the data were read
    if (bPutBack && NTrn >= 1) Session_Title();
    Show_No_Data();
    LogText_Update();
    LogErr({"ERROR: There is not enough memory for this command.",
            bPutBack ? "The data are as they were before it." : "The data are as the last edit left them."});
  } catch (const std::bad_alloc&) {
    std::fputs("quillan: there is not enough memory for this command.\n", stderr);
  }
}

}  // namespace

I4 Run_Whole(I4 (*Carry_Out)(), Unfinished iUnfinished) {
  std::unique_ptr<StoreCopy> hBefore;
  try {
    if (iUnfinished == Unfinished::PutBack) hBefore = std::make_unique<StoreCopy>();
    return Carry_Out();
  } catch (const std::bad_alloc&) {
    if (hBefore) hBefore->Put_Back();
  }
  hBefore.reset();  // gives the report its room
  Report_No_Memory(iUnfinished);
  return 1;
}

}  // namespace quillan
