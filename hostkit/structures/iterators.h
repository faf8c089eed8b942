#pragma once

namespace hostkit {

/// Ends all iterators: the objects that they stand at may be gone.
void Iterators_End_All();

}
