#pragma once

namespace ovrano::bench {

void composition();
void dragSteps();
void masks();

} // namespace ovrano::bench
