#pragma once

#include "host/blocs/HVBloc.h"

/// A volume of a property of the rock: velocity, porosity.
class HVPropertyBloc final : public HVBloc
{
    Q_OBJECT

public:
    explicit HVPropertyBloc(HVProject* project) : HVBloc(hv::VolumeContent::Property, project) {}
};
