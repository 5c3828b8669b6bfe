// SPDX-License-Identifier: CC-BY-4.0
#version 110
// Cross-fade of two pictures, tinted by the colour of the vertices, alpha included.

uniform sampler2D sampler0; // shown at delta 0
uniform sampler2D sampler1; // shown at delta 1
uniform float delta;

void main()
{
    vec4 first = texture2D(sampler0, gl_TexCoord[0].st);
    vec4 second = texture2D(sampler1, gl_TexCoord[0].st);
    gl_FragColor = mix(first, second, delta) * gl_Color;
}
