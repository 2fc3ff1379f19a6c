#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>

#include <array>
#include <cmath>

namespace zr {

namespace {

using Matrix = std::array<std::array<CGFloat, 4>, 4>;

Matrix toMatrix(const CATransform3D& t) {
    return {{{t.m11, t.m12, t.m13, t.m14},
             {t.m21, t.m22, t.m23, t.m24},
             {t.m31, t.m32, t.m33, t.m34},
             {t.m41, t.m42, t.m43, t.m44}}};
}

CATransform3D fromMatrix(const Matrix& m) {
    return {m[0][0], m[0][1], m[0][2], m[0][3], m[1][0], m[1][1], m[1][2], m[1][3],
            m[2][0], m[2][1], m[2][2], m[2][3], m[3][0], m[3][1], m[3][2], m[3][3]};
}

/// Gauss-Jordan with pivoting; false when singular.
bool invert(Matrix a, Matrix& inverse) {
    inverse = toMatrix(CATransform3DIdentity);
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int row = column + 1; row < 4; ++row) {
            if (std::fabs(a[row][column]) > std::fabs(a[pivot][column]))
                pivot = row;
        }
        if (!(std::fabs(a[pivot][column]) > 0))
            return false;
        std::swap(a[pivot], a[column]);
        std::swap(inverse[pivot], inverse[column]);
        const CGFloat scale = a[column][column];
        for (int i = 0; i < 4; ++i) {
            a[column][i] /= scale;
            inverse[column][i] /= scale;
        }
        for (int row = 0; row < 4; ++row) {
            const CGFloat factor = a[row][column];
            if (row == column || factor == 0)
                continue;
            for (int i = 0; i < 4; ++i) {
                a[row][i] -= factor * a[column][i];
                inverse[row][i] -= factor * inverse[column][i];
            }
        }
    }
    return true;
}

using Vector = std::array<CGFloat, 3>;

CGFloat dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
CGFloat length(const Vector& a) { return std::sqrt(dot(a, a)); }
Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
void normalize(Vector& a) {
    const CGFloat l = length(a);
    for (CGFloat& x : a)
        x /= l;
}
/// a + factor * b
Vector combine(const Vector& a, const Vector& b, CGFloat factor) {
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

/// The unit quaternion of orthonormal rows.
void quaternionFromRows(const Vector row[3], CGFloat q[4]) {
    const CGFloat x = row[0][0], y = row[1][1], z = row[2][2];
    q[0] = CGFloat(0.5) * std::sqrt(std::fmax(0, 1 + x - y - z));
    q[1] = CGFloat(0.5) * std::sqrt(std::fmax(0, 1 - x + y - z));
    q[2] = CGFloat(0.5) * std::sqrt(std::fmax(0, 1 - x - y + z));
    q[3] = CGFloat(0.5) * std::sqrt(std::fmax(0, 1 + x + y + z));
    if (row[1][2] < row[2][1])
        q[0] = -q[0];
    if (row[2][0] < row[0][2])
        q[1] = -q[1];
    if (row[0][1] < row[1][0])
        q[2] = -q[2];
}

void slerp(const CGFloat from[4], const CGFloat to[4], CGFloat t, CGFloat result[4]) {
    CGFloat product = from[0] * to[0] + from[1] * to[1] + from[2] * to[2] + from[3] * to[3];
    const CGFloat sign = product < 0 ? -1 : 1;
    product = std::fmin(std::fabs(product), 1);
    const CGFloat angle = std::acos(product);
    CGFloat a = 1 - t, b = t;
    if (angle > 1e-6) {
        a = std::sin((1 - t) * angle) / std::sin(angle);
        b = std::sin(t * angle) / std::sin(angle);
    }
    for (int i = 0; i < 4; ++i)
        result[i] = a * from[i] + sign * b * to[i];
}

} // namespace

bool CATransform3DIsIdentity(const CATransform3D& t) { return t == CATransform3DIdentity; }

bool CATransform3DEqualToTransform(const CATransform3D& a, const CATransform3D& b) { return a == b; }

CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz) {
    CATransform3D t;
    t.m41 = tx;
    t.m42 = ty;
    t.m43 = tz;
    return t;
}

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz) {
    CATransform3D t;
    t.m11 = sx;
    t.m22 = sy;
    t.m33 = sz;
    return t;
}

CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
    Vector axis{x, y, z};
    if (!(length(axis) > 0))
        return CATransform3DIdentity;
    normalize(axis);
    const CGFloat s = std::sin(angle), c = std::cos(angle), k = 1 - c;
    CATransform3D t;
    t.m11 = axis[0] * axis[0] * k + c;
    t.m12 = axis[0] * axis[1] * k + axis[2] * s;
    t.m13 = axis[0] * axis[2] * k - axis[1] * s;
    t.m21 = axis[0] * axis[1] * k - axis[2] * s;
    t.m22 = axis[1] * axis[1] * k + c;
    t.m23 = axis[1] * axis[2] * k + axis[0] * s;
    t.m31 = axis[0] * axis[2] * k + axis[1] * s;
    t.m32 = axis[1] * axis[2] * k - axis[0] * s;
    t.m33 = axis[2] * axis[2] * k + c;
    return t;
}

CATransform3D CATransform3DTranslate(const CATransform3D& t, CGFloat tx, CGFloat ty, CGFloat tz) {
    return CATransform3DConcat(CATransform3DMakeTranslation(tx, ty, tz), t);
}

CATransform3D CATransform3DScale(const CATransform3D& t, CGFloat sx, CGFloat sy, CGFloat sz) {
    return CATransform3DConcat(CATransform3DMakeScale(sx, sy, sz), t);
}

CATransform3D CATransform3DRotate(const CATransform3D& t, CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
    return CATransform3DConcat(CATransform3DMakeRotation(angle, x, y, z), t);
}

CATransform3D CATransform3DConcat(const CATransform3D& a, const CATransform3D& b) {
    const Matrix left = toMatrix(a), right = toMatrix(b);
    Matrix product{};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            for (int i = 0; i < 4; ++i)
                product[row][column] += left[row][i] * right[i][column];
        }
    }
    return fromMatrix(product);
}

CATransform3D CATransform3DInvert(const CATransform3D& t) {
    Matrix inverse;
    return invert(toMatrix(t), inverse) ? fromMatrix(inverse) : t;
}

CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& t) {
    CATransform3D result;
    result.m11 = t.a;
    result.m12 = t.b;
    result.m21 = t.c;
    result.m22 = t.d;
    result.m41 = t.tx;
    result.m42 = t.ty;
    return result;
}

bool CATransform3DIsAffine(const CATransform3D& t) {
    return t.m13 == 0 && t.m14 == 0 && t.m23 == 0 && t.m24 == 0 && t.m31 == 0 && t.m32 == 0 && t.m33 == 1 &&
           t.m34 == 0 && t.m43 == 0 && t.m44 == 1;
}

CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& t) {
    if (!CATransform3DIsAffine(t))
        return CGAffineTransformIdentity;
    return {t.m11, t.m12, t.m21, t.m22, t.m41, t.m42};
}

// Gram-Schmidt on the rows of the upper 3 x 3 part, after the perspective column has been divided out.
bool decomposeTransform(const CATransform3D& t, TransformParts& parts) {
    Matrix m = toMatrix(t);
    if (!(std::fabs(m[3][3]) > 0))
        return false;
    for (auto& row : m) {
        for (CGFloat& x : row)
            x /= t.m44;
    }

    Matrix withoutPerspective = m;
    for (int i = 0; i < 3; ++i)
        withoutPerspective[i][3] = 0;
    withoutPerspective[3][3] = 1;
    Matrix inverse;
    if (!invert(withoutPerspective, inverse))
        return false;

    TransformParts result;
    for (int i = 0; i < 4; ++i) {
        result.perspective[i] = 0;
        for (int j = 0; j < 4; ++j)
            result.perspective[i] += inverse[i][j] * m[j][3];
    }
    for (int i = 0; i < 3; ++i)
        result.translation[i] = m[3][i];

    Vector row[3];
    for (int i = 0; i < 3; ++i)
        row[i] = {m[i][0], m[i][1], m[i][2]};
    result.scale[0] = length(row[0]);
    if (!(result.scale[0] > 0))
        return false;
    normalize(row[0]);
    result.shear[0] = dot(row[0], row[1]);
    row[1] = combine(row[1], row[0], -result.shear[0]);
    result.scale[1] = length(row[1]);
    if (!(result.scale[1] > 0))
        return false;
    normalize(row[1]);
    result.shear[0] /= result.scale[1];
    result.shear[1] = dot(row[0], row[2]);
    row[2] = combine(row[2], row[0], -result.shear[1]);
    result.shear[2] = dot(row[1], row[2]);
    row[2] = combine(row[2], row[1], -result.shear[2]);
    result.scale[2] = length(row[2]);
    if (!(result.scale[2] > 0))
        return false;
    normalize(row[2]);
    result.shear[1] /= result.scale[2];
    result.shear[2] /= result.scale[2];

    // A mirror image: the axis that looks most reversed takes the sign.
    if (dot(row[0], cross(row[1], row[2])) < 0) {
        int mirrored = 0;
        for (int i = 1; i < 3; ++i) {
            if (row[i][i] < row[mirrored][mirrored])
                mirrored = i;
        }
        result.scale[mirrored] = -result.scale[mirrored];
        for (CGFloat& x : row[mirrored])
            x = -x;
        static constexpr int kShearsOfAxis[3][2] = {{0, 1}, {0, 2}, {1, 2}};
        for (int shear : kShearsOfAxis[mirrored])
            result.shear[shear] = -result.shear[shear];
    }
    quaternionFromRows(row, result.quaternion);
    parts = result;
    return true;
}

CATransform3D composeTransform(const TransformParts& parts) {
    CATransform3D t;
    t.m14 = parts.perspective[0];
    t.m24 = parts.perspective[1];
    t.m34 = parts.perspective[2];
    t.m44 = parts.perspective[3];
    t = CATransform3DTranslate(t, parts.translation[0], parts.translation[1], parts.translation[2]);

    const CGFloat x = parts.quaternion[0], y = parts.quaternion[1], z = parts.quaternion[2], w = parts.quaternion[3];
    CATransform3D rotation;
    rotation.m11 = 1 - 2 * (y * y + z * z);
    rotation.m12 = 2 * (x * y + z * w);
    rotation.m13 = 2 * (x * z - y * w);
    rotation.m21 = 2 * (x * y - z * w);
    rotation.m22 = 1 - 2 * (x * x + z * z);
    rotation.m23 = 2 * (y * z + x * w);
    rotation.m31 = 2 * (x * z + y * w);
    rotation.m32 = 2 * (y * z - x * w);
    rotation.m33 = 1 - 2 * (x * x + y * y);
    t = CATransform3DConcat(rotation, t);

    CATransform3D shear;
    shear.m32 = parts.shear[2];
    shear.m31 = parts.shear[1];
    shear.m21 = parts.shear[0];
    t = CATransform3DConcat(shear, t);
    return CATransform3DScale(t, parts.scale[0], parts.scale[1], parts.scale[2]);
}

CATransform3D interpolateTransforms(const CATransform3D& from, const CATransform3D& to, CGFloat t) {
    if (t == 0 || from == to)
        return from;
    if (t == 1)
        return to;
    const auto mix = [t](CGFloat a, CGFloat b) { return a + (b - a) * t; };
    TransformParts a, b, parts;
    if (!decomposeTransform(from, a) || !decomposeTransform(to, b)) {
        const Matrix first = toMatrix(from), second = toMatrix(to);
        Matrix result{};
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column)
                result[row][column] = mix(first[row][column], second[row][column]);
        }
        return fromMatrix(result);
    }
    for (int i = 0; i < 3; ++i) {
        parts.scale[i] = mix(a.scale[i], b.scale[i]);
        parts.shear[i] = mix(a.shear[i], b.shear[i]);
        parts.translation[i] = mix(a.translation[i], b.translation[i]);
    }
    for (int i = 0; i < 4; ++i)
        parts.perspective[i] = mix(a.perspective[i], b.perspective[i]);
    slerp(a.quaternion, b.quaternion, t, parts.quaternion);
    return composeTransform(parts);
}

} // namespace zr
