#pragma once

#include "host/basics.h"

class Tool_Histo;

/// One peak of a histogram: parameters 0 centre (bins), 1 amplitude (counts) and 2 width (bins, half width at half
/// maximum), with the bounds that the fit keeps them in.
struct Histo_Peak {
    unsigned char nb_param; ///< 3
    Vector_N* param;        ///< owned, like the bounds and the curve
    Vector_N* param_min;
    Vector_N* param_max;
    double (*eval)(double x, Vector_N* param);                   ///< the shape's value at bin x
    double (*deriv)(unsigned char k, double x, Vector_N* param); ///< its derivative by parameter k
    Histo_Peak* next;                                            ///< in increasing centre; null at the end
    Histo_Peak* prev;
    int nb_pts;   ///< length of the curve; 0 until it is made
    float* curve; ///< the fitted shape at bins 0 .. nb_pts - 1, or null
};

/// What a search for peaks leaves: the list, and the arrays that it worked on.
struct Histo_Peaks {
    double* smooth = nullptr;   ///< nb_pts running means of the counts; what is fitted
    float* slope = nullptr;     ///< nb_pts first differences of `smooth`
    float* sum = nullptr;       ///< nb_pts sums of the shapes as they were before the fit
    int nb = 0;                 ///< peaks in the list
    Histo_Peak* head = nullptr; ///< the first
    int nb_pts = 0;             ///< bins of the last search

    Histo_Peaks() = default;
    Histo_Peaks(const Histo_Peaks&) = delete;
    Histo_Peaks& operator=(const Histo_Peaks&) = delete;
    ~Histo_Peaks() { Release(); }

    /// Empties the list and frees the arrays.
    void Release();
};

namespace histo {

/// How peaks are shaped and searched; one for all panels.
struct Peak_Settings {
    unsigned short shape = 2; ///< 0 none, 1 Lorentzian, 2 Gaussian, 3 mixed; nothing changes it
    float mixing = 0.5f;      ///< the Lorentzian's share in the mixed shape
    float maximum_width = 0;  ///< of a peak, bins; a fifth of the bins of the search
    float centre_freedom = 0; ///< how far a centre may move from where it was found, bins
    float least_height = 0;   ///< of the smoothed data where a peak is sought in them
    int last_crossing = 0;    ///< where the slope last fell through zero; outlives a search
};
extern Peak_Settings peak_settings;

/// A shape at one place: its value and its derivatives by centre, amplitude and width.
struct Shape_Point {
    double value;
    double derivative[3];
};
Shape_Point shape_at(double x, const Vector_N& param);

/// How far from its centre the shape reaches, bins; exactly 0 beyond.
double shape_reach(const Vector_N& param);

}

/// Places a peak on every maximum that it accepts, fits them and makes their curves.
/// @param n       bins
/// @param counts  n counts
void Peak_Locate(Histo_Peaks* peaks, int n, const double* counts);

/// Appends a peak with its starting values and bounds. @param tail the last record, or null; becomes the new one
/// @param factor of the smoothed height at x, for the starting amplitude @param width the starting width, bins
/// @return the record, or null when there is no memory (reported)
Histo_Peak* Peak_Add(Histo_Peaks* peaks, Histo_Peak** tail, int x, float factor, float width);

/// Takes a peak out of the list and frees it; the reason goes into the report.
void Peak_Delete(Histo_Peaks* peaks, Histo_Peak* peak, const char* format, ...) VETRA_PRINTF(3, 4);

/// Whether the slope falls through zero just before bin x, steeply enough on both sides.
/// @param half_window bins to each side that must rise and fall @param least slope that must be exceeded on both sides
/// @return 0, or how many bins the falling flank lasts
int Is_Zero_Peak(int n, const float* slope, int x, int half_window, float least);

/// Whether bin x - 1 is the largest within the half window and stands out by `rise` counts. @return 1 or 0
int Is_Data_Peak(int n, const double* smooth, int x, int half_window, float rise);

/// The shape at bins 0 .. n - 1; null when its centre is exactly 0, or without memory (reported). The caller frees it
/// with delete[].
double* Peak_Sample(int n, Vector_N* param);

/// Fits the sum of the peaks to the data by Gauss-Newton steps within the peaks' bounds, and deletes peaks that
/// collapse, spread or come too close to a neighbour.
/// @param limit  of the change of the sum of squares, below which it has converged
/// @return the mean square error in percent; 0 when the fit failed (reported, unless there is no memory for the sum)
double Gauss_Newton(Histo_Peaks* peaks, unsigned short n, const double* data, double limit);
