#pragma once

class Tool_Histo;

namespace workbench {

/// Sets the panel's zoom so that the histogram can be seen: bins that tower above all others, as that of the air around
/// a patient, are cut at the top. It shows with the panel's next paint.
void zoomToShow(Tool_Histo& panel);

}
