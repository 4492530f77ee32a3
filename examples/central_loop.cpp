#include "central_loop.h"

#include <math.h>  // j1
#include <algorithm>
#include <array>

namespace examples {
namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double mu0 = 4.0e-7 * pi;

/// Order of the Gaver-Stehfest sum: higher ones lose more digits than they gain.
constexpr int n_stehfest = 16;

double Factorial(int n) {
  return n < 2 ? 1.0 : n * Factorial(n - 1);
}

double Stehfest_Weight(int k) {
  constexpr int half = n_stehfest / 2;
  double sum = 0.0;
  for (int j = (k + 1) / 2; j <= std::min(k, half); ++j) {
    sum += std::pow(j, half) * Factorial(2 * j) /
           (Factorial(half - j) * Factorial(j) * Factorial(j - 1) * Factorial(k - j) * Factorial(2 * j - k));
  }
  return (k + half) % 2 == 0 ? sum : -sum;
}

/// Reflection coefficient of the earth for the wave number lambda at the Laplace variable s. Differences from lambda
/// are carried along instead of the admittances themselves: the sum over s cancels most digits.
double Reflection(const Model& model, double lambda, double s) {
  const auto excess = [&](const Layer& layer) {
    const double k2 = s * mu0 / layer.rho;
    return k2 / (lambda + std::sqrt(lambda * lambda + k2));
  };
  double below = excess(model.back());
  for (auto layer = model.rbegin() + 1; layer != model.rend(); ++layer) {
    const double here = excess(*layer);
    const double u = lambda + here;
    const double one_minus_tanh = 2.0 / (std::exp(2.0 * u * layer->thickness) + 1.0);
    below = here + u * (below - here) * one_minus_tanh / (u + (lambda + below) * (1.0 - one_minus_tanh));
  }
  return -below / (2.0 * lambda + below);
}

/// Gauss-Legendre on 10 points.
template <class Function>
double Integral(Function f, double from, double to) {
  constexpr std::array<double, 5> x{0.1488743389816312, 0.4333953941292472, 0.6794095682990244, 0.8650633666889845,
                                    0.9739065285171717};
  constexpr std::array<double, 5> w{0.2955242247147529, 0.2692667193099963, 0.2190863625159820, 0.1494513491505806,
                                    0.0666713443086881};
  const double middle = 0.5 * (from + to);
  const double reach = 0.5 * (to - from);
  double sum = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) sum += w[i] * (f(middle - reach * x[i]) + f(middle + reach * x[i]));
  return reach * sum;
}

/// The limit of an alternating series from its partial sums, by repeated means.
double Alternating_Limit(std::vector<double> partial) {
  while (partial.size() > 1) {
    for (std::size_t i = 0; i + 1 < partial.size(); ++i) partial[i] = 0.5 * (partial[i] + partial[i + 1]);
    partial.pop_back();
  }
  return partial.front();
}

/// Secondary Hz in the middle of the loop for each ampere: a/2 times the integral of r lambda J1(lambda a).
double Secondary_Hz(const Model& model, double a, double s) {
  const auto f = [&](double lambda) { return Reflection(model, lambda, s) * lambda * ::j1(lambda * a); };
  // The first half wave in pieces that shrink toward 0, where the reflection changes fastest; then half wave by half
  // wave, of which the last ones are averaged out.
  constexpr double first_zero = 3.8317059702075125;
  double sum = 0.0;
  double to = first_zero / a;
  for (int piece = 0; piece < 40; ++piece) {
    sum += Integral(f, 0.6 * to, to);
    to *= 0.6;
  }
  constexpr int n_plain = 30;
  constexpr int n_averaged = 30;
  std::vector<double> partial;
  for (int k = 0; k < n_plain + n_averaged; ++k) {
    sum += Integral(f, (first_zero + k * pi) / a, (first_zero + (k + 1) * pi) / a);
    if (k >= n_plain) partial.push_back(sum);
  }
  return 0.5 * a * Alternating_Limit(partial);
}

}  // namespace

double Half_Space_dBdt(double rho, double a, double t) {
  const double x = a * std::sqrt(mu0 / (4.0 * rho * t));
  const double shape = 3.0 * std::erf(x) - 2.0 / std::sqrt(pi) * x * (3.0 + 2.0 * x * x) * std::exp(-x * x);
  return rho / (a * a * a) * shape;
}

double Layered_dBdt(const Model& model, double a, double t) {
  if (model.size() == 1) return Half_Space_dBdt(model.front().rho, a, t);
  // Only what the layers above add to their basement is brought into time numerically: late times are then exact.
  const Model basement{model.back()};
  double sum = 0.0;
  for (int k = 1; k <= n_stehfest; ++k) {
    const double s = k * std::log(2.0) / t;
    sum += Stehfest_Weight(k) * (Secondary_Hz(model, a, s) - Secondary_Hz(basement, a, s));
  }
  return Half_Space_dBdt(model.back().rho, a, t) + mu0 * sum * std::log(2.0) / t;
}

double Late_Time_Resistivity(double volts_per_amp, double area, double a, double t) {
  return std::pow(std::pow(mu0, 2.5) * a * a * area / (20.0 * std::sqrt(pi) * std::pow(t, 2.5) * volts_per_amp),
                  2.0 / 3.0);
}

}  // namespace examples
