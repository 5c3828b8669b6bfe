// SPDX-License-Identifier: MIT
// What a town is made of: the twisted box, the houses, windows and pillars built with it, and the matrix that
// flattens them to shadows. The functions draw under the current modelview matrix, with the texture, colour
// and light of the caller, and leave the matrix as it was. A twisted box goes to GL in one draw, and so do
// the windows of a house. Angles are degrees.
//
// A twisted box is a four-sided shaft on the y axis that narrows or widens, twists and leans as it rises,
// built of slabs of the height `step`. At the fraction t of its length, height * stretch, it is turned by the
// Euler angles (angleA, angleB, angleC) * t about its foot (MatrixFromEuler) and its half width lies between
// the two given.
//
// Its texture is an atlas: the four walls side by side from s = 1 down to 0, a quarter each, with t 0.75 at
// the foot and 0.25 at the top; the roof is s 0.75 to 1, t 0 to 0.25.
#pragma once

class Texture;

// Without a step above 0 nothing is drawn.
void DrawTwistedBox(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC);

// A window: a patch that follows the surface of the twisted box with the same first eight arguments, from the
// height `start` on, a little in front of its z face, or of the -z face with backFace. aspect is its width as
// a part of the wall's; shiftX moves it aside without twisting. textures: the lit window, then the unlit.
// Leaves blending disabled with (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), white, and lighting enabled if lit.
void DrawLightPatch(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC, bool lit, float start, float length,
                    float aspect, float shiftX, Texture* const* textures, bool backFace);

// The nine houses on both sides of the way; with a light (x, y, z, w; a direction) as flat shadows on the
// ground.
void DrawHouses(const float* light);

// The ten lit windows in them.
void DrawLightPatches(Texture* const* textures);

// Six pillars in a ring of radius 7 round (x, y, z); with a light (a point) as flat shadows. bend of 0.5
// takes 20 degrees off the bends at their tops.
void DrawPillarRing(const float* light, float x, float y, float z, float bend);

// Flattens what is drawn from here on to 0.1 above the plane y = 0 of the current frame: onto the way of a
// light direction, or of a point light. light: at least three floats; y must not be 0 in a direction.
void ApplyShadowMatrix(const float* light, bool pointLight);
