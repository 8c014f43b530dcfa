#pragma once

namespace ovrano::bench {

void rotations();
void extrusions();

} // namespace ovrano::bench
