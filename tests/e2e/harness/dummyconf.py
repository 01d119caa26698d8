"""The configuration of an X server whose monitors exist in memory only."""

DUMMY_CONFIGURATION = """\
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoEnableDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
    Option "AllowMouseOpenFail" "true"
EndSection

Section "Device"
    Identifier "memory"
    Driver "dummy"
    VideoRam 256000
EndSection

# The timings matter to nobody; only the sizes are shown.
Section "Monitor"
    Identifier "any"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
    Modeline "1440x900" 106.50 1440 1528 1672 1904 900 903 909 934
    Modeline "1280x800" 83.50 1280 1352 1480 1680 800 803 809 831
    Modeline "1024x768" 65.00 1024 1048 1184 1344 768 771 777 806
EndSection

Section "Screen"
    Identifier "screen"
    Device "memory"
    Monitor "any"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1440x900" "1280x800" "1024x768"
        Virtual 4096 2048
    EndSubSection
EndSection

Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
EndSection
"""
