#include "tools/Calculators.h"

#include <cmath>

#include "draws/Draw.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kBetPrice = 2;  // yuan for one bet

// The product of first, first + 1, ... up to last; 1 where there is none of them.
double Product(double first, double last) {
    const double factors = std::floor(last - first) + 1;
    double product = 1;
    for (double i = 0; i < factors && std::isfinite(product); ++i) product *= first + i;
    return product;
}

}  // namespace

double Combinations(double m, double n) {
    return std::nearbyint(Product(m - n + 1, m) / Product(1, n));
}

std::optional<double> BankerBetPrice(Host& host, int bankers, int drags, int blues) {
    if (bankers + drags < kRedsInDraw) {
        host.ShowMessage("胆码和拖码总数不能小于6个");
        return std::nullopt;
    }
    return Combinations(drags, kRedsInDraw - bankers) * blues * kBetPrice;
}

std::optional<double> MultipleBetPrice(Host& host, int reds, int blues) {
    if (reds < kRedsInDraw) {
        host.ShowMessage("红球不能小于6个");
        return std::nullopt;
    }
    return Combinations(reds, kRedsInDraw) * blues * kBetPrice;
}

}  // namespace ssq
