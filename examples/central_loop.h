// central_loop.h: the voltage that a central-loop sounding measures over a layered earth.
//
// The response in the middle of a circular loop is computed in the Laplace domain (the loop's field as in Ward and
// Hohmann (1988), Electromagnetic theory for geophysical applications, equation 4.88) and brought into time by the
// method of Gaver and Stehfest (Knight and Raiche (1982), Geophysics 47, 47-50). For a half-space there is the closed
// form of Ward and Hohmann, equation 4.98, against which the generator checks itself.
#pragma once

#include <vector>

namespace examples {

struct Layer {
  double rho;        // ohm-m
  double thickness;  // m; of no meaning in the last layer
};
using Model = std::vector<Layer>;

/// dBz/dt in T/s for each ampere that is switched off at time 0; a: loop radius, m; t: s. Positive as it decays.
double Half_Space_dBdt(double rho, double a, double t);
double Layered_dBdt(const Model& model, double a, double t);

/// Late-time apparent resistivity, ohm-m, of a voltage of area * dBz/dt.
double Late_Time_Resistivity(double volts_per_amp, double area, double a, double t);

}  // namespace examples
