#pragma once

#include "host/blocs/HVBloc.h"

/// A volume of amplitudes, or of what is derived from them.
class HVSeismicBloc final : public HVBloc
{
    Q_OBJECT

public:
    explicit HVSeismicBloc(HVProject* project) : HVBloc(hv::VolumeContent::Seismic, project) {}
};
