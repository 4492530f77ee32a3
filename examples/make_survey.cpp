// make_survey.cpp: makes the example survey, the same files each time.
//
//   make_survey FOLDER
//
//   orrin.avg      21 central-loop soundings of Hx, Hy and Hz at 4 hertz along a line over a basin: conductive fill
//                  over resistive basement, with noise, two bad stations, spikes, and one station (700) wired with
//                  reversed polarity
//   orrin_16hz.avg the same soundings at 16 hertz, which see less deep
//   orrin.mde      job, line, station numbering and heading of the receiver; orrin_16hz.mde is the same
//   orrin.stn      positions of the stations
//   orrin.txw      corners of the transmitter loops
//   orrin_rep.xdb  unaveraged repeats of five stations
//   orrin_el.avg   early and late records of six stations, which the decimals of their numbers separate: .0 and .1
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "central_loop.h"

namespace {

using namespace examples;

constexpr int n_station = 21;
constexpr double spacing = 50.0;       // m
constexpr double line_azimuth = 65.0;  // degrees
constexpr double side = 100.0;         // m, of the square loop
constexpr double rx_area = 10000.0;    // m^2
constexpr double pi = 3.14159265358979323846;
const double radius = side / std::sqrt(pi);  // of the circle of equal area

/// Normal deviates that are the same with every library.
class Noise {
 public:
  explicit Noise(unsigned seed) : random(seed) {}
  double operator()() { return std::sqrt(-2.0 * std::log(Uniform())) * std::cos(2.0 * pi * Uniform()); }
  double Uniform() { return (random() + 0.5) / 4294967296.0; }

 private:
  std::mt19937 random;
};

struct Window {
  double centre, begin, end;  // msec
};

/// n windows from first to last, evenly spaced in the logarithm.
std::vector<Window> Windows(int n, double first, double last) {
  std::vector<Window> windows;
  const double step = std::pow(last / first, 1.0 / (n - 1));
  for (int i = 0; i < n; ++i) {
    const double centre = first * std::pow(step, i);
    windows.push_back({centre, centre / std::sqrt(step), centre * std::sqrt(step)});
  }
  return windows;
}

/// The earth below a station: the fill is thickest in the middle of the line and thins out to its ends.
Model Earth(int station) {
  const double x = (station - 10) / 10.0;
  const double fill = 90.0 * std::exp(-3.0 * x * x);
  if (fill < 6.0)
    return {
        {220.0, 0.0}
    };
  return {
      {60.0,  12.0},
      {9.0,   fill},
      {220.0, 0.0 }
  };
}

struct Reading {
  double value, error;  // uV/A
};

/// How one record was measured.
struct Setup {
  double scale = 1.0;  // of the response: component, polarity
  double noise = 1.0;  // of the floor
  double spike = 0.0;  // chance of a spike a window
};

/// Noise of the stacked record in a window, uV/A: it falls with the window's width.
double Floor(const Window& w) {
  return 0.006 / std::sqrt(w.end - w.begin);
}

Reading Measure(double response, const Window& w, const Setup& setup, Noise& noise) {
  const double value = 1.0e6 * rx_area * response * setup.scale;
  const double floor = setup.noise * Floor(w);
  const double error = std::hypot(0.006 * std::abs(value), floor);
  Reading r{value + error * noise(), error * (0.8 + 0.4 * noise.Uniform())};
  if (noise.Uniform() < setup.spike) {
    r.value += (noise.Uniform() < 0.5 ? -1.0 : 1.0) * (0.4 * std::abs(value) + 8.0 * floor);
    r.error *= 6.0;
  }
  return r;
}

const char* const component_name[] = {"Hx", "Hy", "Hz"};

/// The horizontal components of a layered earth vanish in the middle of the loop; what is recorded there is the slope
/// of the basin's floor and the tilt of the coil, a few percent of Hz.
double Component_Scale(int component, int station) {
  if (component == 2) return 1.0;
  const double slope = (station - 10) / 10.0 * std::exp(-2.0 * std::pow((station - 10) / 10.0, 2));
  return component == 0 ? 0.16 * slope + 0.01 : 0.04 * std::cos(0.3 * station);
}

/// A text file that is written line by line.
class File {
 public:
  explicit File(const std::string& path) : file(std::fopen(path.c_str(), "wb")) {
    if (file == nullptr) {
      std::perror(path.c_str());
      std::exit(1);
    }
  }
  ~File() { std::fclose(file); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  template <class... Value>
  void Line(const char* format, Value... value) {
    std::fprintf(file, format, value...);
    std::fputc('\n', file);
  }

 private:
  std::FILE* file;
};

struct Position {
  double east, north, elevation;
};

Position Position_of(double station) {
  const double azimuth = line_azimuth * pi / 180.0;
  const double wiggle = 4.0 * std::sin(station / 130.0);
  return {482310.0 + station * std::sin(azimuth) - wiggle * std::cos(azimuth),
          5176420.0 + station * std::cos(azimuth) + wiggle * std::sin(azimuth),
          1384.0 - 11.0 * std::sin(station / 330.0)};
}

struct Record {
  double station;  // as recorded
  int component;
  double frequency;
  int block;
};

void Write_Block(File& file, const Record& r, int minute) {
  const int cycles = r.frequency > 10.0 ? 4096 : 1024;
  file.Line(" ");
  file.Line("$Kvr.Blk=%d.00,%d.00", r.block, r.block);
  file.Line("$Kvr.Date=03/09/2020");
  file.Line("$Kvr.Time=%02d:%02d:00", 8 + minute / 60, minute % 60);
  file.Line("$Tx.KvrStn=%g", r.station);
  file.Line("$Tx.Freq=%g hertz", r.frequency);
  file.Line("$Tx.NCycle=%d", cycles);
  file.Line("$Tx.Amp=%.3f amp", 9.6 + 0.2 * std::sin(r.station / 90.0));
  file.Line("$Tx.Ramp=38.5 usec");
  file.Line("$Rx.KvrStn=%g", r.station);
  file.Line("$Rx.Area%c=%.0f", "XYZ"[r.component], rx_area);
  file.Line("$Rx.Cmp=%s", component_name[r.component]);
  file.Line("$Rx.AntDelay  = 2.6 usec");
  file.Line("$Rx.AliasDelay= 0 usec");
  file.Line("$Tx.Delay= 0 usec");
}

void Write_Rows(File& file, const std::vector<Window>& windows, const std::vector<Reading>& readings) {
  file.Line("TWin.Index,TWin.Center,TWin.Beg,TWin.End,dBdt.Mag,dBdt.Err,dBdt.%%Err,ARes.Mag");
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const Window& w = windows[i];
    const Reading& r = readings[i];
    const double rho = Late_Time_Resistivity(1.0e-6 * std::abs(r.value), rx_area, radius, 1.0e-3 * w.centre);
    file.Line("%2d, %10.4E, %10.4E, %10.4E, %12.5E, %9.2E, %8.1f, %10.3E", static_cast<int>(i + 1), w.centre, w.begin,
              w.end, r.value, r.error, std::min(100.0 * r.error / std::abs(r.value), 99999.9), rho);
  }
}

std::vector<double> Response(int station, const std::vector<Window>& windows) {
  std::vector<double> response;
  for (const Window& w : windows) response.push_back(Layered_dBdt(Earth(station), radius, 1.0e-3 * w.centre));
  return response;
}

void Write_Record(File& file, const Record& r, const std::vector<Window>& windows, const std::vector<double>& response,
                  const Setup& setup, Noise& noise, int minute) {
  std::vector<Reading> readings;
  for (std::size_t i = 0; i < windows.size(); ++i) readings.push_back(Measure(response[i], windows[i], setup, noise));
  Write_Block(file, r, minute);
  Write_Rows(file, windows, readings);
}

void Write_Units(File& file) {
  file.Line("$ Survey.Type = TEM");
  file.Line("$ Survey.Array = INL");
  file.Line("$ Unit.Length = m");
  file.Line("$ Unit.Time = msec");
  file.Line("$ Unit.dBdt = uV/A");
}

/// What is wrong with a station: two stand beside a power line, one is wired the wrong way round.
Setup Station_Setup(int station, int component) {
  Setup setup;
  setup.scale = Component_Scale(component, station);
  setup.spike = 0.012;
  if (station == 5 || station == 17) setup = {setup.scale, 60.0, 0.10};
  if (station == 14) setup.scale = -setup.scale;
  return setup;
}

const std::vector<Window>& Windows_of(double frequency) {
  static const std::vector<Window> slow = Windows(31, 0.0107, 29.4);
  static const std::vector<Window> fast = Windows(24, 0.0107, 6.05);
  return frequency > 10.0 ? fast : slow;
}

/// The crew measures every station at both base frequencies; each has a file of its own.
void Make_Line(const std::string& folder) {
  struct {
    double frequency;
    File file;
  } half[] = {
      {4.0,  File(folder + "/orrin.avg")     },
      {16.0, File(folder + "/orrin_16hz.avg")}
  };
  for (auto& [frequency, file] : half) {
    file.Line("\\ Orrin basin, line 12, central-loop soundings at %g hertz. Synthetic data.", frequency);
    Write_Units(file);
  }
  Noise noise(1105);
  int block = 1;
  for (int station = 0; station < n_station; ++station) {
    for (auto& [frequency, file] : half) {
      const std::vector<double> response = Response(station, Windows_of(frequency));
      for (int component = 0; component < 3; ++component) {
        Write_Record(file, {station * spacing, component, frequency, block}, Windows_of(frequency), response,
                     Station_Setup(station, component), noise, 4 * block);
      }
      ++block;
    }
  }
}

void Make_Repeats(const std::string& folder) {
  File file(folder + "/orrin_rep.xdb");
  file.Line("\\ Orrin basin, line 12, repeats before averaging. Synthetic data.");
  Write_Units(file);
  Noise noise(1106);
  int block = 201;
  for (const int station : {2, 6, 10, 13, 18}) {
    const std::vector<double> response = Response(station, Windows_of(16.0));
    for (int repeat = 0; repeat < 4; ++repeat) {
      const Setup setup{1.0, repeat == 2 ? 9.0 : 2.0, 0.02};
      Write_Record(file, {station * spacing, 2, 16.0, block}, Windows_of(16.0), response, setup, noise,
                   3 * (block - 200));
      ++block;
    }
  }
}

void Make_Early_and_Late(const std::string& folder) {
  File file(folder + "/orrin_el.avg");
  file.Line("\\ Orrin basin, line 12, early (.0) and late (.1) records. Synthetic data.");
  Write_Units(file);
  Noise noise(1107);
  const std::vector<Window>& all = Windows_of(4.0);
  int block = 301;
  for (const int station : {4, 6, 8, 10, 12, 16}) {
    const std::vector<double> response = Response(station, all);
    for (const int part : {0, 1}) {
      // Early records end at window 20, late ones begin at window 12: the windows between are measured twice.
      const int from = part == 0 ? 0 : 11;
      const int to = part == 0 ? 20 : 31;
      const std::vector<Window> windows(all.begin() + from, all.begin() + to);
      const std::vector<double> values(response.begin() + from, response.begin() + to);
      const Setup setup{part == 0 ? 1.0 : 1.03, part == 0 ? 4.0 : 0.6, 0.0};
      Write_Record(file, {station * spacing + 0.1 * part, 2, 4.0, block}, windows, values, setup, noise,
                   5 * (block - 300));
      ++block;
    }
  }
}

void Write_Metadata(const std::string& path) {
  File file(path);
  file.Line("! Orrin basin, line 12");
  file.Line("$ Job.Name = \"Orrin basin ground water\"");
  file.Line("$ Job.Area = \"Orrin valley\"");
  file.Line("$ Job.For = \"Valley water board\"");
  file.Line("$ Job.By = \"Example geophysics\"");
  file.Line("$ Job.Number = 2011-07");
  file.Line("$ Job.Date = 03/09/2020");
  file.Line("$ Line.Name = \"12\"");
  file.Line("$ Line.Number = 12");
  file.Line("$ Line.Azimuth = %g", line_azimuth);
  file.Line("$ Stn.KvrBeg = 0");
  file.Line("$ Stn.KvrInc = 50");
  file.Line("$ Stn.Beg = 1200");
  file.Line("$ Stn.Inc = 50");
  file.Line("$ Tx.Turns = 1");
  file.Line("$ Tx.Length = %g,%g m", side, side);
  file.Line("$ Tx.Area = %g m^2", side * side);
  file.Line("$ Rx.XAzimuth = %g", line_azimuth);
  file.Line("! Narvo keeps its own lines here:");
  file.Line("$ Narvo: Smooth = 0.35");
}

void Make_Metadata(const std::string& folder) {
  for (const char* const name : {"/orrin.mde", "/orrin_16hz.mde"}) Write_Metadata(folder + name);
}

void Make_Stations(const std::string& folder) {
  File file(folder + "/orrin.stn");
  file.Line("\\ UTM zone 12 north, metres");
  file.Line("Station, East, North, Elev");
  for (int station = 0; station < n_station; ++station) {
    const Position p = Position_of(station * spacing);
    file.Line("%g, %.2f, %.2f, %.2f", 1200.0 + station * spacing, p.east, p.north, p.elevation);
  }
}

void Make_Wires(const std::string& folder) {
  File file(folder + "/orrin.txw");
  file.Line("\\ Corners of the transmitter loops, UTM zone 12 north, metres");
  file.Line("Tx.ID, East, North, Elev");
  const double azimuth = line_azimuth * pi / 180.0;
  constexpr std::array<std::array<double, 2>, 4> corner{
      {{-1.0, -1.0}, {1.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}}
  };
  for (int station = 0; station < n_station; ++station) {
    const Position p = Position_of(station * spacing);
    for (const auto& c : corner) {
      const double along = 0.5 * side * c[0];
      const double across = 0.5 * side * c[1];
      file.Line("%g, %.2f, %.2f, %.2f", 1200.0 + station * spacing,
                p.east + along * std::sin(azimuth) - across * std::cos(azimuth),
                p.north + along * std::cos(azimuth) + across * std::sin(azimuth), p.elevation);
    }
  }
}

/// The closed form of a half-space must come out of the layered computation too.
bool Layers_Agree_With_Half_Space() {
  for (const double t : {1.0e-5, 1.0e-4, 1.0e-3, 1.0e-2}) {
    const double exact = Half_Space_dBdt(60.0, radius, t);
    const double layered = Layered_dBdt(
        {
            {60.0, 12.0},
            {60.0, 40.0},
            {60.0, 0.0 }
    },
        radius, t);
    if (std::abs(layered / exact - 1.0) > 1.0e-6) return false;
    // A deep basement is not seen at early times.
    const double deep = Layered_dBdt(
        {
            {60.0,  2000.0},
            {220.0, 0.0   }
    },
        radius, 1.0e-5);
    if (std::abs(deep / Half_Space_dBdt(60.0, radius, 1.0e-5) - 1.0) > 1.0e-3) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_survey FOLDER\n");
    return 2;
  }
  if (!Layers_Agree_With_Half_Space()) {
    std::fprintf(stderr, "make_survey: the layered response does not agree with the half-space\n");
    return 1;
  }
  for (const auto& Make : {Make_Line, Make_Repeats, Make_Early_and_Late, Make_Metadata, Make_Stations, Make_Wires}) {
    Make(argv[1]);
  }
  return 0;
}
