#pragma once

namespace workbench {

/// Brings the host to its start: no objects and windows, variables with their usual values, the workbench's brushes,
/// the first tag ready for painting.
struct FreshHost {
    FreshHost();
};

}
