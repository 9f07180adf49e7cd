#pragma once

/// Numbers of the geometry, each as a double and, with a final f, as the nearest float.

inline constexpr double KOVAPI = 3.14159265358979323846;
inline constexpr double KOVA2PI = 2.0 * KOVAPI;
inline constexpr double KOVA3PI = 9.42477796076937971538;
inline constexpr double KOVAPIBY2 = KOVAPI / 2.0;
inline constexpr double KOVAPIBY4 = KOVAPI / 4.0;
inline constexpr double KOVA3PIBY2 = KOVA3PI / 2.0;
inline constexpr double KOVA3PIBY4 = KOVA3PI / 4.0;
inline constexpr double KOVAINVPI = 0.31830988618379067154;
inline constexpr double KOVAINV2PI = KOVAINVPI / 2.0;
inline constexpr double KOVASQRT2 = 1.41421356237309504880;
inline constexpr double KOVASQRT3 = 1.73205080756887729353;
inline constexpr double KOVAINVSQRT2 = 0.70710678118654752440;
inline constexpr double KOVAINVSQRT3 = 0.57735026918962576451;
inline constexpr double KOVADegreeToRadian = 0.01745329251994329577;
inline constexpr double KOVARadianToDegree = 57.2957795130823208768;

inline constexpr float KOVAPIf = static_cast<float>(KOVAPI);
inline constexpr float KOVA2PIf = static_cast<float>(KOVA2PI);
inline constexpr float KOVA3PIf = static_cast<float>(KOVA3PI);
inline constexpr float KOVAPIBY2f = static_cast<float>(KOVAPIBY2);
inline constexpr float KOVAPIBY4f = static_cast<float>(KOVAPIBY4);
inline constexpr float KOVA3PIBY2f = static_cast<float>(KOVA3PIBY2);
inline constexpr float KOVA3PIBY4f = static_cast<float>(KOVA3PIBY4);
inline constexpr float KOVAINVPIf = static_cast<float>(KOVAINVPI);
inline constexpr float KOVAINV2PIf = static_cast<float>(KOVAINV2PI);
inline constexpr float KOVASQRT2f = static_cast<float>(KOVASQRT2);
inline constexpr float KOVASQRT3f = static_cast<float>(KOVASQRT3);
inline constexpr float KOVAINVSQRT2f = static_cast<float>(KOVAINVSQRT2);
inline constexpr float KOVAINVSQRT3f = static_cast<float>(KOVAINVSQRT3);
inline constexpr float KOVADegreeToRadianf = static_cast<float>(KOVADegreeToRadian);
inline constexpr float KOVARadianToDegreef = static_cast<float>(KOVARadianToDegree);
