#pragma once

#include <QImage>

namespace ovrano::testing {

/// A picture that compresses and quantises like a photograph: an island in the sea under an evening sky, with
/// smooth gradients, fine structure and a little noise. The same pixels at each call.
QImage landscape(QSize size);

/// A hot-air balloon on white, to be pasted with the white made transparent. It is drawn without soft edges,
/// which would leave a pale seam.
QImage balloon(QSize size);

} // namespace ovrano::testing
