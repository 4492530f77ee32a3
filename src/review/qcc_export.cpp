#include "review/qcc_export.h"

#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "model/derived.h"
#include "review/plot/plot_types.h"
#include "review/qcc_plot.h"
#include "review/table_file.h"

namespace quillan {
namespace {

constexpr EditForm hValueForm = "(ES14.5)";
constexpr EditForm hErrorForm = "(F14.1)";

const Transient& On_Show() {
  return hTrn(hCurve.iTrn);
}

std::string Station(R8 dStn) {
  return std::string(Str_Write_XYZR8(dStn).trimmed());
}

void Write_Window(const Transient& h, I4 I, TextWriter& out) {
  Put_Field(out, Str_Write_I4(I).trimmed());
  Put_Field(out, Str_Write_R4(h.fTWCen(I), hValueForm).trimmed());
  Put_Field(out, Str_Write_R4(Plot_Values(h, hCurve.iPlotType)(I), hValueForm).trimmed());
  Put_Field(out, Str_Write_R4(h.fuVpct(I), hErrorForm).trimmed());
  Put_Field(out, Is_Skipped(h, I) ? "yes" : "no");
  out.Line("");
}

}  // namespace

std::string QCC_Export_Stem(std::string_view sDataFile) {
  std::string sStem(File_Stem(sDataFile));
  if (Is_Present(On_Show().dRxStn)) sStem += "_" + Station(On_Show().dRxStn);
  return sStem + "_" + Export_Part(hCurve.iPltCmp, hCurve.iPlotType);
}

std::string QCC_Export_Subject() {
  return "Section " + Str_Write_I4(On_Show().iSection).str() + ", transient " + Str_Write_I4(hCurve.iTrn).str() + "/" +
         Str_Write_I4(NTrn).str() + ", Tx " + Station(On_Show().dTxStn) + ", Rx " + Station(On_Show().dRxStn) + ", " +
         hCurve.sYLabel;
}

I4 QCC_Write_CSV(std::string_view sCsvFile) {
  Begin_Table("Exporting TEM curve data to", sCsvFile);
  TextWriter out(sCsvFile);
  out.Put("Window,Time (msec),");
  Put_Field(out, hCurve.sYLabel);
  out.Line("Error (%),Skipped,");
  for (I4 I = 1; I <= On_Show().NTW; ++I) Write_Window(On_Show(), I, out);
  return End_Table(out, sCsvFile, " data export is complete.");
}

}  // namespace quillan
