"""What the end-to-end tests stand on.

Each module has one subject: ``waiting`` (conditions with a limit),
``account`` (a private user), ``xserver`` and ``windowmanager`` (processes of
a desktop), ``devices`` (mouse and keyboard), ``desktop`` (all of a screen),
``probe`` (what the host says of itself), ``host`` (a running application)
and ``menus`` (its menus, worked with the mouse).
"""
