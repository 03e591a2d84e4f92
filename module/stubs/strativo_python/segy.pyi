"""Export of seismic volumes to SEG-Y files."""
# Written by module/stubs/generate.py; do not edit.
