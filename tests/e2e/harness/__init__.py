"""What the end-to-end tests stand on.

Each module has one subject: ``waiting`` (conditions with a limit),
``account`` (a private user), ``xserver`` and ``windowmanager`` (processes of
a desktop), ``devices`` (mouse and keyboard), ``desktop`` (all of a screen),
``probe`` (what the host says of itself), ``host`` (a running application),
``menus``, ``controls`` and ``form`` (its menus and the windows of ours, worked as
its user works them), ``webserver`` and ``browser`` (both ends of the web).
"""
