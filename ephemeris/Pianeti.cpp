#include "ephemeris/Pianeti.h"

#include <cmath>

#include "core/Aritmetica.h"
#include "ephemeris/Sole.h"

namespace vesmo {

namespace {

double Pol(double T, double c0, double c1, double c2, double c3 = 0) {
    return c0 + c1 * T + c2 * T * T + c3 * T * T * T;
}

// The mean elements without any correction.
void ElementiMedi(double T, int n, Elementi& el) {
    switch (n) {
    case 1: // Mercurio
        el.L = Pol(T, 178.179078, 149474.07078, 0.0003011);
        el.a = 0.3870986;
        el.e = Pol(T, 0.20561421, 2.046e-05, -3e-08);
        el.i = Pol(T, 7.002881, 0.0018608, -1.83e-05);
        el.w = Pol(T, 28.753753, 0.3702806, 0.0001208);
        el.O = Pol(T, 47.145944, 1.1852083, 0.0001739);
        break;
    case 2: // Venere
        el.L = Pol(T, 342.767053, 58519.21191, 0.0003097);
        el.a = 0.7233316;
        el.e = Pol(T, 0.00682069, -4.774e-05, 9.1e-08);
        el.i = Pol(T, 3.393631, 0.0010058, -1e-06);
        el.w = Pol(T, 54.384186, 0.5081861, -0.0013864);
        el.O = Pol(T, 75.779647, 0.89985, 0.00041);
        break;
    case 4: // Marte
        el.L = Pol(T, 293.737334, 19141.69551, 0.0003107);
        el.a = 1.5236883;
        el.e = Pol(T, 0.0933129, 9.2064e-05, -7.7e-08);
        el.i = Pol(T, 1.850333, -0.000675, 1.26e-05);
        el.w = Pol(T, 285.431761, 1.0697667, 0.0001313, 4.14e-06);
        el.O = Pol(T, 48.786442, 0.7709917, -1.4e-06, -5.33e-06);
        break;
    case 5: // Giove
        el.L = Pol(T, 238.049257, 3036.301986, 0.0003347, -1.65e-06);
        el.a = 5.202561;
        el.e = Pol(T, 0.04833475, 0.00016418, -4.676e-07, -1.7e-09);
        el.i = Pol(T, 1.308736, -0.0056961, 3.9e-06);
        el.w = Pol(T, 273.277558, 0.5994317, 0.00070405, 5.08e-06);
        el.O = Pol(T, 99.443414, 1.01053, 0.00035222, -8.51e-06);
        break;
    case 6: // Saturno
        el.L = Pol(T, 266.564377, 1223.509884, 0.0003245, -5.8e-06);
        el.a = 9.554747;
        el.e = Pol(T, 0.05589232, -0.0003455, -7.28e-07, 7.4e-10);
        el.i = Pol(T, 2.492519, -0.0039189, -1.549e-05, 4e-08);
        el.w = Pol(T, 338.3078, 1.0852207, 0.00097854, 9.92e-06);
        el.O = Pol(T, 112.790414, 0.8731951, -0.00015218, -5.31e-06);
        break;
    case 7: // Urano
        el.L = Pol(T, 244.19747, 429.863546, 0.000316, -6e-07);
        el.a = 19.21814;
        el.e = Pol(T, 0.0463444, -2.658e-05, 7.7e-08);
        el.i = Pol(T, 0.772464, 0.0006253, 3.95e-05);
        el.w = Pol(T, 98.071581, 0.985765, -0.0010745, -6.1e-07);
        el.O = Pol(T, 73.477111, 0.4986678, 0.0013117);
        break;
    case 8: // Nettuno
        el.L = Pol(T, 84.457994, 219.885914, 0.0003205, -6e-07);
        el.a = 30.10957;
        el.e = Pol(T, 0.00899704, 6.33e-06, -2e-09);
        el.i = Pol(T, 1.779242, -0.0095436, -9.1e-06);
        el.w = Pol(T, 276.045975, 0.3256394, 0.00014095, 4.113e-06);
        el.O = Pol(T, 130.681389, 1.098935, 0.00024987, -4.718e-06);
        break;
    default: // the Earth and anything else: zeros
        el = Elementi{};
        break;
    }
}

// The sums dL, de, dw, da of the perturbations of the elements of Jupiter to Neptune.
void PerturbazioniElementi(double T, int n, double& dL, double& de, double& dw, double& da) {
    double v, P, Q, S, N;
    ArgomentiGiganti(T, v, P, Q, S, N);
    double V = Radianti(5 * Q - 2 * P);
    double W = Radianti(2 * P - 6 * Q + 3 * S);
    double Z = Radianti(Q - P);
    double X = Radianti(S - Q);
    double G = Radianti(2 * N - S);
    Q = Radianti(Q);
    dL = de = dw = da = 0;
    switch (n) {
    case 5: // Giove
        dL += (0.331364 - 0.010281 * v - 0.004692 * v * v) * std::sin(V);
        dL += (0.003228 - 0.064436 * v + 0.002075 * v * v) * std::cos(V);
        dL += (-0.003083 - 0.000275 * v + 0.000489 * v * v) * std::sin(2 * V);
        dL += 0.002472 * std::sin(W);
        dL += 0.013619 * std::sin(Z);
        dL += 0.018472 * std::sin(2 * Z);
        dL += 0.006717 * std::sin(3 * Z);
        dL += 0.002775 * std::sin(4 * Z);
        dL += (0.007275 - 0.001253 * v) * std::sin(Z) * std::sin(Q);
        dL += 0.006417 * std::sin(2 * Z) * std::sin(Q);
        dL += 0.002439 * std::sin(3 * Z) * std::sin(Q);
        dL += (-0.033839 - 0.001125 * v) * std::cos(Z) * std::sin(Q);
        dL -= 0.003767 * std::cos(2 * Z) * std::sin(Q);
        dL += (-0.035681 - 0.001208 * v) * std::sin(Z) * std::cos(Q);
        dL -= 0.004261 * std::sin(2 * Z) * std::cos(Q);
        dL += 0.002178 * std::cos(Q);
        dL += (-0.006333 + 0.001161 * v) * std::cos(Z) * std::cos(Q);
        dL -= 0.006675 * std::cos(2 * Z) * std::cos(Q);
        dL -= 0.002664 * std::cos(3 * Z) * std::cos(Q);
        dL -= 0.002572 * std::sin(Z) * std::sin(2 * Q);
        dL -= 0.003567 * std::sin(2 * Z) * std::sin(2 * Q);
        dL += 0.002094 * std::cos(Z) * std::cos(2 * Q);
        dL += 0.003342 * std::cos(2 * Z) * std::cos(2 * Q);
        de += (0.0003606 + 1.3e-05 * v - 4.3e-06 * v * v) * std::sin(V);
        de += (0.0001289 - 5.8e-05 * v) * std::cos(V);
        de -= 0.0006764 * std::sin(Z) * std::sin(Q);
        de -= 0.000111 * std::sin(2 * Z) * std::sin(Q);
        de -= 2.24e-05 * std::sin(3 * Z) * std::sin(Q);
        de -= 2.04e-05 * std::sin(Q);
        de += (0.0001284 + 1.16e-05 * v) * std::cos(Z) * std::sin(Q);
        de += 1.88e-05 * std::cos(2 * Z) * std::sin(Q);
        de += (1.46e-05 + 1.3e-05 * v) * std::sin(Z) * std::cos(Q);
        de += 2.24e-05 * std::sin(2 * Z) * std::cos(Q);
        de -= 8.17e-05 * std::cos(Q);
        de += 0.0006074 * std::cos(Z) * std::cos(Q);
        de += 9.92e-05 * std::cos(2 * Z) * std::cos(Q);
        de += 5.08e-05 * std::cos(3 * Z) * std::cos(Q);
        de += 2.3e-05 * std::cos(4 * Z) * std::cos(Q);
        de += 1.08e-05 * std::cos(5 * Z) * std::cos(Q);
        de += (-9.56e-05 - 7.3e-06 * v) * std::sin(Z) * std::sin(2 * Q);
        de += 4.48e-05 * std::sin(2 * Z) * std::sin(2 * Q);
        de += 1.37e-05 * std::sin(3 * Z) * std::sin(2 * Q);
        de += (-9.97e-05 + 1.08e-05 * v) * std::cos(Z) * std::sin(2 * Q);
        de += 4.8e-05 * std::cos(2 * Z) * std::sin(2 * Q);
        de += 1.48e-05 * std::cos(3 * Z) * std::sin(2 * Q);
        de += (-9.56e-05 + 9.9e-06 * v) * std::sin(Z) * std::cos(2 * Q);
        de += 4.9e-05 * std::sin(2 * Z) * std::cos(2 * Q);
        de += 1.58e-05 * std::sin(3 * Z) * std::cos(2 * Q);
        de += 1.79e-05 * std::cos(2 * Q);
        de += (0.0001024 + 7.5e-06 * v) * std::cos(Z) * std::cos(2 * Q);
        de -= 4.37e-05 * std::cos(2 * Z) * std::cos(2 * Q);
        de -= 1.32e-05 * std::cos(3 * Z) * std::cos(2 * Q);
        dw += (0.007192 - 0.003147 * v) * std::sin(V);
        dw += (-0.020428 - 0.000675 * v + 0.000197 * v * v) * std::cos(V);
        dw += (0.007269 + 0.000672 * v) * std::sin(Z) * std::sin(Q);
        dw -= 0.004344 * std::sin(Q);
        dw += 0.034036 * std::cos(Z) * std::sin(Q);
        dw += 0.005614 * std::cos(2 * Z) * std::sin(Q);
        dw += 0.002964 * std::cos(3 * Z) * std::sin(Q);
        dw += 0.037761 * std::sin(Z) * std::cos(Q);
        dw += 0.006158 * std::sin(2 * Z) * std::cos(Q);
        dw -= 0.006603 * std::cos(Z) * std::cos(Q);
        dw -= 0.005356 * std::sin(Z) * std::sin(2 * Q);
        dw += 0.002722 * std::sin(2 * Z) * std::sin(2 * Q);
        dw += 0.004483 * std::cos(Z) * std::sin(2 * Q);
        dw -= 0.002642 * std::cos(2 * Z) * std::sin(2 * Q);
        dw += 0.004403 * std::sin(Z) * std::cos(2 * Q);
        dw -= 0.002536 * std::sin(2 * Z) * std::cos(2 * Q);
        dw += 0.005547 * std::cos(Z) * std::cos(2 * Q);
        dw -= 0.002689 * std::cos(2 * Z) * std::cos(2 * Q);
        da -= 0.000263 * std::cos(V);
        da += 0.000205 * std::cos(Z);
        da += 0.000693 * std::cos(2 * Z);
        da += 0.000312 * std::cos(3 * Z);
        da += 0.000147 * std::cos(4 * Z);
        da += 0.000299 * std::sin(Z) * std::sin(Q);
        da += 0.000181 * std::cos(2 * Z) * std::sin(Q);
        da += 0.000204 * std::sin(2 * Z) * std::cos(Q);
        da += 0.000111 * std::sin(3 * Z) * std::cos(Q);
        da -= 0.000337 * std::cos(Z) * std::cos(Q);
        da -= 0.000111 * std::cos(2 * Z) * std::cos(Q);
        break;
    case 6: // Saturno
        dL += (-0.814181 + 0.01815 * v + 0.016714 * v * v) * std::sin(V);
        dL += (-0.010497 + 0.160906 * v - 0.0041 * v * v) * std::cos(V);
        dL += 0.007581 * std::sin(2 * V);
        dL -= 0.007986 * std::sin(W);
        dL -= 0.148811 * std::sin(Z);
        dL -= 0.040786 * std::sin(2 * Z);
        dL -= 0.015208 * std::sin(3 * Z);
        dL -= 0.006339 * std::sin(4 * Z);
        dL -= 0.006244 * std::sin(Q);
        dL += (0.008931 + 0.002728 * v) * std::sin(Z) * std::sin(Q);
        dL -= 0.0165 * std::sin(2 * Z) * std::sin(Q);
        dL -= 0.005775 * std::sin(3 * Z) * std::sin(Q);
        dL += (0.081344 + 0.003206 * v) * std::cos(Z) * std::sin(Q);
        dL += 0.015019 * std::cos(2 * Z) * std::sin(Q);
        dL += (0.085581 + 0.002494 * v) * std::sin(Z) * std::cos(Q);
        dL += (0.025328 - 0.003117 * v) * std::cos(Z) * std::cos(Q);
        dL += 0.014394 * std::cos(2 * Z) * std::cos(Q);
        dL += 0.006319 * std::cos(3 * Z) * std::cos(Q);
        dL += 0.006369 * std::sin(Z) * std::sin(2 * Q);
        dL += 0.009156 * std::sin(2 * Z) * std::sin(2 * Q);
        dL += 0.007525 * std::sin(3 * X) * std::sin(2 * Q);
        dL -= 0.005236 * std::cos(Z) * std::cos(2 * Q);
        dL -= 0.007736 * std::cos(2 * Z) * std::cos(2 * Q);
        dL -= 0.007528 * std::cos(3 * X) * std::cos(2 * Q);
        de += (-0.0007927 + 0.0002548 * v + 9.1e-06 * v * v) * std::sin(V);
        de += (0.0013381 + 0.0001226 * v - 2.53e-05 * v * v) * std::cos(V);
        de += (2.48e-05 - 1.21e-05 * v) * std::sin(2 * V);
        de += (-3.05e-05 - 9.1e-06 * v) * std::cos(2 * V);
        de += 4.12e-05 * std::sin(2 * Z);
        de += 0.0012415 * std::sin(Q);
        de += (3.9e-05 - 6.17e-05 * v) * std::sin(Z) * std::sin(Q);
        de += (1.65e-05 - 2.04e-05 * v) * std::sin(2 * Z) * std::sin(Q);
        de += 0.0026599 * std::cos(Z) * std::sin(Q);
        de -= 0.0004687 * std::cos(2 * Z) * std::sin(Q);
        de -= 0.000187 * std::cos(3 * Z) * std::sin(Q);
        de -= 8.21e-05 * std::cos(4 * Z) * std::sin(Q);
        de -= 3.77e-05 * std::cos(5 * Z) * std::sin(Q);
        de += 4.97e-05 * std::cos(2 * X) * std::sin(Q);
        de += (1.63e-05 - 6.11e-05 * v) * std::cos(Q);
        de -= 0.0012696 * std::sin(Z) * std::cos(Q);
        de -= 0.00042 * std::sin(2 * Z) * std::cos(Q);
        de -= 0.0001503 * std::sin(3 * X) * std::cos(Q);
        de -= 6.19e-05 * std::sin(4 * Z) * std::cos(Q);
        de -= 2.68e-05 * std::sin(5 * Z) * std::cos(Q);
        de += (-2.82e-05 - 0.0001306 * v) * std::cos(Z) * std::cos(Q);
        de += (-8.6e-06 + 2.3e-05 * v) * std::cos(2 * Z) * std::cos(Q);
        de += 4.61e-05 * std::sin(2 * X) * std::cos(Q);
        de -= 3.5e-05 * std::sin(2 * Q);
        de += (0.0002211 - 2.86e-05 * v) * std::sin(Z) * std::sin(2 * Q);
        de -= 0.0002208 * std::sin(2 * Z) * std::sin(2 * Q);
        de -= 5.68e-05 * std::sin(3 * Z) * std::sin(2 * Q);
        de -= 3.46e-05 * std::sin(4 * Z) * std::sin(2 * Q);
        de += (-0.000278 - 2.22e-05 * v) * std::cos(Z) * std::sin(2 * Q);
        de += (0.0002022 + 2.63e-05 * v) * std::cos(2 * Z) * std::sin(2 * Q);
        de += 2.48e-05 * std::cos(3 * Z) * std::sin(2 * Q);
        de += 2.42e-05 * std::sin(3 * X) * std::sin(2 * Q);
        de += 4.67e-05 * std::cos(3 * X) * std::sin(2 * Q);
        de -= 4.9e-05 * std::cos(2 * Q);
        de += (-0.0002842 - 2.79e-05 * v) * std::sin(Z) * std::cos(2 * Q);
        de += (1.28e-05 + 2.26e-05 * v) * std::sin(2 * Z) * std::cos(2 * Q);
        de += 2.24e-05 * std::sin(3 * Z) * std::cos(2 * Q);
        de += (-0.0001594 + 2.82e-05 * v) * std::cos(Z) * std::cos(2 * Q);
        de += (0.0002162 - 2.07e-05 * v) * std::cos(2 * Z) * std::cos(2 * Q);
        de += 5.61e-05 * std::cos(3 * Z) * std::cos(2 * Q);
        de += 3.43e-05 * std::cos(4 * Z) * std::cos(2 * Q);
        de += 4.69e-05 * std::sin(3 * X) * std::cos(2 * Q);
        de -= 2.42e-05 * std::cos(3 * X) * std::cos(2 * Q);
        de -= 2.05e-05 * std::sin(Z) * std::sin(3 * Q);
        de += 2.62e-05 * std::sin(3 * Z) * std::sin(3 * Q);
        de += 2.08e-05 * std::cos(Z) * std::cos(3 * Q);
        de -= 2.71e-05 * std::cos(3 * Z) * std::cos(3 * Q);
        de -= 3.82e-05 * std::cos(3 * Z) * std::sin(4 * Q);
        de -= 3.76e-05 * std::sin(3 * Z) * std::cos(4 * Q);
        dw += (0.077108 + 0.007186 * v - 0.001533 * v * v) * std::sin(V);
        dw += (0.045803 - 0.014766 * v - 0.000536 * v * v) * std::cos(V);
        dw -= 0.007075 * std::sin(Z);
        dw -= 0.075825 * std::sin(Z) * std::sin(Q);
        dw -= 0.024839 * std::sin(2 * Z) * std::sin(Q);
        dw -= 0.008631 * std::sin(3 * Z) * std::sin(Q);
        dw -= 0.072586 * std::cos(Q);
        dw -= 0.150383 * std::cos(Z) * std::cos(Q);
        dw += 0.026897 * std::cos(2 * Z) * std::cos(Q);
        dw += 0.010053 * std::cos(3 * Z) * std::cos(Q);
        dw += (-0.013597 - 0.001719 * v) * std::sin(Z) * std::sin(2 * Q);
        dw += (-0.007742 + 0.001517 * v) * std::cos(Z) * std::sin(2 * Q);
        dw += (0.013586 - 0.001375 * v) * std::cos(2 * Z) * std::sin(2 * Q);
        dw += (-0.013667 + 0.001239 * v) * std::sin(Z) * std::cos(2 * Q);
        dw += 0.011981 * std::sin(2 * Z) * std::cos(2 * Q);
        dw += (0.014861 + 0.001136 * v) * std::cos(Z) * std::cos(2 * Q);
        dw += (-0.013064 - 0.001628 * v) * std::cos(2 * Z) * std::cos(2 * Q);
        da += (0.000572 * v) * std::sin(V);
        da += 0.002933 * std::cos(V);
        da += 0.033629 * std::cos(Z);
        da -= 0.003081 * std::cos(2 * Z);
        da -= 0.001423 * std::cos(3 * Z);
        da -= 0.000671 * std::cos(4 * Z);
        da -= 0.00032 * std::cos(5 * Z);
        da += 0.001098 * std::sin(Q);
        da -= 0.002812 * std::sin(Z) * std::sin(Q);
        da += 0.000688 * std::sin(2 * Z) * std::sin(Q);
        da -= 0.000393 * std::sin(3 * Z) * std::sin(Q);
        da -= 0.000228 * std::sin(4 * Z) * std::sin(Q);
        da += 0.002138 * std::cos(Z) * std::sin(Q);
        da -= 0.000999 * std::cos(2 * Z) * std::sin(Q);
        da -= 0.000642 * std::cos(3 * Z) * std::sin(Q);
        da -= 0.000325 * std::cos(4 * Z) * std::sin(Q);
        da -= 0.00089 * std::cos(Q);
        da += 0.002206 * std::sin(Z) * std::cos(Q);
        da -= 0.00159 * std::sin(2 * Z) * std::cos(Q);
        da -= 0.000647 * std::sin(3 * Z) * std::cos(Q);
        da -= 0.000344 * std::sin(4 * Z) * std::cos(Q);
        da += 0.002885 * std::cos(Z) * std::cos(Q);
        da += (0.002172 + 0.000102 * v) * std::cos(2 * Z) * std::cos(Q);
        da += 0.000296 * std::cos(3 * Z) * std::cos(Q);
        da -= 0.000267 * std::sin(2 * Z) * std::sin(2 * Q);
        da -= 0.000778 * std::cos(Z) * std::sin(2 * Q);
        da += 0.000495 * std::cos(2 * Z) * std::sin(2 * Q);
        da += 0.00025 * std::cos(3 * Z) * std::sin(2 * Q);
        da -= 0.000856 * std::sin(Z) * std::cos(2 * Q);
        da += 0.000441 * std::sin(2 * Z) * std::cos(2 * Q);
        da += 0.000296 * std::cos(2 * Z) * std::cos(2 * Q);
        da += 0.000211 * std::cos(3 * Z) * std::cos(2 * Q);
        da -= 0.000427 * std::sin(Z) * std::sin(3 * Q);
        da += 0.000398 * std::sin(3 * Z) * std::sin(3 * Q);
        da += 0.000344 * std::cos(Z) * std::cos(3 * Q);
        da -= 0.000427 * std::cos(3 * Z) * std::cos(3 * Q);
        break;
    case 7: // Urano
        dL += (0.864319 - 0.001583 * v) * std::sin(G);
        dL += (0.082222 - 0.006833 * v) * std::cos(G);
        dL += 0.036017 * std::sin(2 * G);
        dL -= 0.003019 * std::cos(2 * G);
        dL += 0.008122 * std::sin(W);
        de += (-0.0003349 + 1.63e-05 * v) * std::sin(G);
        de += 0.0020981 * std::cos(G);
        de += 0.0001311 * std::cos(2 * G);
        dw += 0.120303 * std::sin(G);
        dw += (0.019472 - 0.000947 * v) * std::cos(G);
        dw += 0.006197 * std::sin(2 * G);
        da -= 0.003825 * std::cos(G);
        break;
    case 8: // Nettuno
        dL += (-0.589833 + 0.001089 * v) * std::sin(G);
        dL += (-0.056094 + 0.004658 * v) * std::cos(G);
        dL += 0.024286 * std::sin(2 * G);
        de += 0.0004389 * std::sin(G);
        de += 0.0004262 * std::cos(G);
        de += 0.0001129 * std::sin(2 * G);
        de += 0.0001089 * std::cos(2 * G);
        dw += 0.024039 * std::sin(G);
        dw -= 0.025303 * std::cos(G);
        dw += 0.006206 * std::sin(2 * G);
        dw -= 0.005992 * std::cos(2 * G);
        da -= 0.000817 * std::sin(G);
        da += 0.008189 * std::cos(G);
        da += 0.000781 * std::cos(2 * G);
        break;
    default:
        break;
    }
}

} // namespace

void ElementiPianeta(double jd, int n, int flag, Elementi& el, double& anomalia) {
    double T = SecoliGiuliani(jd);
    ElementiMedi(T, n, el);
    if (n == 3 || n < 1 || n > 8) return; // the Earth: zeros and no anomaly
    el.L = Norma360(el.L, 1);
    anomalia = Norma360(el.L - el.w - el.O, 1);
    if (flag == 0) return;
    if (n == 2) {
        double c = 0.00077 * std::sin(Radianti(237.24 + 150.27 * T));
        el.L += c;
        anomalia += c;
    } else if (n == 4) {
        // The long-period term of Mars with Jupiter and the Earth (x turns once in some fifteen
        // centuries, so c is nearly constant, about -0.013 degrees in our era), added to L and
        // to the anomaly. Measured against a modern ephemeris it leaves Mars about 0.025
        // degrees behind in heliocentric longitude, up to 0.12 degrees geocentric near
        // opposition.
        double Me = Norma360(AnomaliaSole(T), 1);
        Elementi giove;
        double Mj = 0;
        ElementiPianeta(jd, 5, 0, giove, Mj);
        double Mm = anomalia;
        double x = Radianti(3 * Mj - 8 * Mm + 4 * Me);
        double c = 0.01133 * std::sin(x) + 0.00933 * std::cos(x);
        el.L += c;
        anomalia += c;
    } else if (n >= 5) {
        double dL, de, dw, da;
        PerturbazioniElementi(T, n, dL, de, dw, da);
        // The anomaly takes dw over the eccentricity before its own correction; neither L nor
        // the anomaly is brought back into 0..360.
        el.L += dL;
        anomalia = anomalia + dL - dw / el.e;
        el.e += de;
        el.a += da;
    }
}

void ArgomentiGiganti(double T, double& v, double& P, double& Q, double& S, double& N) {
    v = T / 5 + 0.1;
    P = Norma360(237.47555 + 3034.9061 * T, 1);
    Q = Norma360(265.9165 + 1222.1139 * T, 1);
    S = Norma360(243.51721 + 428.4677 * T, 1);
    N = Norma360(83.76922 + 218.4901 * T, 1);
}

void PerturbazioniPianeta(double jd, int n, double& dl, double& db, double& dr) {
    double T = SecoliGiuliani(jd);
    if (n == 4) {
        // Mars: the anomalies and the constants stand in degrees inside the cosines.
        double Me = AnomaliaSole(T);
        Elementi el;
        double Mv = 0, Mm = 0, Mj = 0;
        ElementiPianeta(jd, 2, 0, el, Mv);
        ElementiPianeta(jd, 4, 0, el, Mm);
        ElementiPianeta(jd, 5, 0, el, Mj);
        auto c = [](double gradi) { return std::cos(Radianti(gradi)); };
        dl += 0.00705 * c(Mj - Mm - 48.958);
        dl += 0.00607 * c(2 * Mj - Mm - 188.35);
        dl += 0.00445 * c(2 * Mj - 2 * Mm - 191.897);
        dl += 0.00388 * c(Me - 2 * Mm + 20.495);
        dl += 0.00238 * c(Me - Mm + 35.097);
        dl += 0.00204 * c(2 * Me - 3 * Mm + 158.638);
        dl += 0.00177 * c(3 * Mm - Mv - 57.602);
        dl += 0.00136 * c(2 * Me - 4 * Mm + 154.093);
        dl += 0.00104 * c(Mj + 17.618);
        dr += 5.3227e-05 * c(Mj - Mm + 41.1306);
        dr += 5.0989e-05 * c(2 * Mj - 2 * Mm - 101.9847);
        dr += 3.8278e-05 * c(2 * Mj - Mm - 98.3292);
        dr += 1.5996e-05 * c(Me - Mm - 55.555);
        dr += 1.4764e-05 * c(2 * Me - 3 * Mm + 68.622);
        dr += 8.966e-06 * c(Mj - 2 * Mm + 43.615);
        dr += 7.914e-06 * c(3 * Mj - 2 * Mm - 139.737);
        dr += 7.004e-06 * c(2 * Mj - 3 * Mm - 102.888);
        dr += 6.62e-06 * c(Me - 2 * Mm + 113.202);
        dr += 4.93e-06 * c(3 * Mj - 3 * Mm - 76.243);
        dr += 4.693e-06 * c(3 * Me - 5 * Mm + 190.603);
        dr += 4.571e-06 * c(2 * Me - 4 * Mm + 244.702);
        dr += 4.409e-06 * c(3 * Mj - Mm - 115.828);
        return;
    }
    if (n < 6 || n > 8) return;
    double v, P, Q, S, N;
    ArgomentiGiganti(T, v, P, Q, S, N);
    // The latitude sums are written in degrees, like dl; the latitude they join is in radians,
    // so they are turned into radians before they are added. Added as they stand they would
    // move Saturn's latitude by up to 0.22 degrees and Uranus' by 0.07; converted, the latitudes
    // of the three planets stay within 0.003 degrees of the true ones (1900-2050).
    double dbGradi = 0;
    if (n == 6) {
        double Z = Radianti(Q - P);
        Q = Radianti(Q);
        dbGradi += 0.000747 * std::cos(Z) * std::sin(Q);
        dbGradi += 0.001069 * std::cos(Z) * std::cos(Q);
        dbGradi += 0.002108 * std::sin(2 * Z) * std::sin(2 * Q);
        dbGradi += 0.001261 * std::cos(2 * Z) * std::sin(2 * Q);
        dbGradi += 0.001236 * std::sin(2 * Z) * std::cos(2 * Q);
        dbGradi -= 0.002075 * std::cos(2 * Z) * std::cos(2 * Q);
    } else {
        double A = Radianti(S - P);
        double B = Radianti(S - Q);
        double H = Radianti(N - S);
        S = Radianti(S);
        N = Radianti(N);
        if (n == 7) {
            dl += (0.10122 - 0.00988 * v) * std::sin(S + B);
            dl += (-0.038581 + 0.002031 * v - 0.00191 * v * v) * std::cos(S + B);
            dl += (0.034964 - 0.001038 * v + 0.000868 * v * v) * std::cos(2 * S + B);
            dl += 0.005594 * std::sin(3 * H + S);
            dl -= 0.014808 * std::sin(A);
            dl -= 0.005794 * std::sin(B);
            dl += 0.002347 * std::cos(B);
            dl += 0.009872 * std::sin(H);
            dl += 0.008803 * std::sin(2 * H);
            dl -= 0.004308 * std::sin(3 * H);
            dbGradi += 0.000458 * std::sin(B) * std::sin(S) - 0.000642 * std::cos(B) * std::sin(S) -
                       0.000517 * std::cos(4 * H) * std::sin(S);
            dbGradi += -0.000853 * std::cos(B) * std::cos(S) -
                       0.000347 * std::sin(B) * std::cos(S) -
                       0.000517 * std::sin(4 * B) * std::cos(S);
            dbGradi += 0.000403 * std::cos(2 * S) * std::sin(2 * H) +
                       0.000403 * std::sin(2 * S) * std::cos(2 * H);
            dr -= 0.025948;
            dr += 0.004985 * std::cos(A);
            dr -= 0.00123 * std::cos(S);
            dr += 0.003354 * std::cos(B);
            dr += 0.005975 * std::cos(S) * std::sin(B) - 0.001165 * std::sin(S) * std::sin(B) +
                  0.001388 * std::cos(2 * S) * std::sin(B);
            dr += 0.005702 * std::sin(S) * std::cos(B) + 0.001351 * std::cos(S) * std::cos(B) +
                  0.001388 * std::sin(2 * S) * std::cos(B);
            dr += 0.000904 * std::cos(2 * H);
            dr += 0.000984 * std::cos(H) - 0.000984 * std::cos(3 * H);
        } else {
            // The five numbers of the longitude of Neptune are hundredths of a degree: their
            // sum comes to +0.0166 degrees at JD 2451545.0 and -0.003 at JD 2433282.5, of the
            // size of the -0.05 and +0.02 of Uranus. Read as whole degrees they would put
            // Neptune up to 1.85 degrees off; as hundredths it stays within 0.06 (1900-2050).
            dl += 0.01 *
                  (-0.9556 * std::sin(A) - 0.5178 * std::sin(B) + 0.2572 * std::sin(2 * H) -
                   0.2972 * std::cos(2 * H) * std::sin(N) - 0.2833 * std::sin(2 * H) * std::cos(N));
            dbGradi += 0.000336 * std::cos(2 * H) * std::sin(N);
            dbGradi += 0.000364 * std::sin(2 * H) * std::cos(N);
            dr -= 0.040596;
            dr += 0.004992 * std::cos(A);
            dr += 0.002744 * std::cos(B);
            dr += 0.002044 * std::cos(H);
            dr += 0.001051 * std::cos(2 * H);
        }
    }
    db += Radianti(dbGradi);
}

void PianetaEliocentrico(double jd, int n, int flag, const Elementi& el, double anomalia,
                         PosEliocentrica& pos) {
    double E = Keplero(el.e, Radianti(anomalia));
    double v = AnomaliaVera(el.e, E);
    // Argument of latitude, from the perturbed L and anomaly.
    double u = Radianti(Norma360(v + el.L - anomalia - el.O, 1));
    double i = Radianti(el.i);
    double num = std::cos(i) * std::sin(u);
    double den = std::cos(u);
    double d = Norma360(QuadranteAtn(Segno(num), Segno(den), std::atan(num / den)), 0);
    pos.lon = Norma360(d + el.O, 1);
    pos.lat = ArcoSeno(std::sin(u) * std::sin(i));
    pos.dist = el.a * (1 - el.e * std::cos(E));
    if (flag != 0) {
        double dl = 0, db = 0, dr = 0;
        PerturbazioniPianeta(jd, n, dl, db, dr);
        pos.lon += dl; // may leave 0..360 here
        pos.lat += db;
        pos.dist += dr;
    }
}

void PianetaGeocentrico(double jd, int, int flag, const PosEliocentrica& elio, PosGeocentrica& geo,
                        double& elongazione) {
    double s, R, ar, de;
    PosizioneSole(jd, flag, s, R, ar, de);
    double l = Radianti(elio.lon), b = elio.lat, r = elio.dist;
    double ls = l - Radianti(s);
    double x = r * std::cos(b) * std::cos(ls) + R;
    double y = r * std::cos(b) * std::sin(ls);
    double z = r * std::sin(b);
    double d = Norma360(QuadranteAtn(Segno(y), Segno(x), std::atan(y / x)), 0);
    geo.lon = Norma360(d + s, 1);
    geo.dist = std::sqrt(x * x + y * y + z * z);
    geo.lat = ArcoSeno(z / geo.dist);
    elongazione = DistanzaAngolare(Radianti(s), 0, Radianti(geo.lon), geo.lat);
}

} // namespace vesmo
