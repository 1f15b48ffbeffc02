# The window program.
