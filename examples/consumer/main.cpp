// Uses the library as another program of the suite would: a state point, the
// primary return-air scheme in summer, and one setting of Config.xml.
#include <zefra/zefra.h>

#include <cstdio>

int main() {
    // Plays the host's part: loads the module now, unloads it at the end.
    ZefraModule module;
    std::printf("ZefraDataBase %s\n", ZEFRA_VERSION_STRING);

    // Room air at 22 °C and 60 %, at the standard pressure.
    SetHDGCurB(101325.0);
    ZefraHDGPoint room(22.0, 0.6, CString(L"N"));
    std::printf("point N: H = %.3f kJ/kg, D = %.3f g/kg\n", room.GetH(), room.GetD());

    // Summer, cooling to the dew point: the built-in given data with our room.
    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = HDGPRI_XJ_DEWPOINT;
    given.PointN = ZefraHDGPoint(26.0, 0.55, CString(L"N"));
    given.PointW = ZefraHDGPoint(34.0, 0.65, CString(L"W"));
    ZefraHDGPrimaryReturnAir scheme;
    scheme.SetGivenData(given);
    if (!scheme.Calculate()) {
        std::fprintf(stderr, "the scheme did not calculate\n");
        return 1;
    }
    std::printf("supply O: Tdb = %.2f °C; supply flow Go = %.4f kg/s; %d report lines\n",
                scheme.GetPointO().GetTdb(), scheme.GetGo(), static_cast<int>(scheme.GetResultInfo().GetSize()));

    // A setting: the atmospheric pressure of the duct calculation conditions.
    double pressure = 0.0;
    if (!g_dictCfg.GetValue(CString(L"ZEFRA\\CALCONDITION\\Pressure"), pressure)) {
        std::fprintf(stderr, "Config.xml not found or without ZEFRA\\CALCONDITION\\Pressure\n");
        return 1;
    }
    std::printf("setting ZEFRA\\CALCONDITION\\Pressure = %g Pa\n", pressure);
    return 0;
}
