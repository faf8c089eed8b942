#pragma once

#include "host/basics.h"
#include "host/structures.h"

#include <set>
#include <string>
#include <vector>

/// Frames that are whatever a test says: a small library in place of the host kit's tree and iterators, beside
/// own_registry.
namespace own_frames {

class STRUCTURES_API Frame : public Strato_2D_Frame {
public:
    explicit Frame(const Histo_Record* shown = nullptr, const char* its_unit = nullptr);

    int Value_Get(const Vector_4& position) override;

    const Histo_Record* histogram;
    bool selected = true;
    int raw = no_value; ///< what it has at every position; of a grey frame the bits of the grey value
    Vector_4 asked_at;  ///< the last position that was asked for
};

/// The raw value of a grey frame with this grey value everywhere.
STRUCTURES_API int raw_of(float grey);

/// The frames that iterators go through. The caller keeps them.
STRUCTURES_API void show(std::vector<Frame*> frames);

/// Which of the next iterators cannot be opened, counted from 1.
STRUCTURES_API void fail_to_open(std::set<int> which);

/// What was asked of iterators since the last call: "begin OWNER", "next MASK SCOPE all" or "next MASK SCOPE selected"
/// once for each run through the frames, "end".
STRUCTURES_API std::vector<std::string> take_calls();

/// How many iterators have been begun and not ended.
STRUCTURES_API int open_iterators();

}
